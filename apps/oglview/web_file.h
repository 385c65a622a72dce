// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace oglview {

/// A file that a web server may hand out.
struct WebFile {
    std::filesystem::path path;
    std::string type; ///< its media type
};

/// The file of `folder` for the path of a URL (decoded, starting with a slash); a folder means its
/// index.html. Nothing when there is none, or when it lies outside of `folder`, be it by dots or by
/// a link.
std::optional<WebFile> findWebFile(const std::filesystem::path& folder, const std::string& urlPath);

} // namespace oglview
