// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/web_file.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace oglview {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::pair<std::string_view, std::string_view>, 7> kTypes{{
    {".css", "text/css; charset=utf-8"},
    {".html", "text/html; charset=utf-8"},
    {".jpg", "image/jpeg"},
    {".js", "text/javascript; charset=utf-8"},
    {".json", "application/json"},
    {".png", "image/png"},
    {".svg", "image/svg+xml"},
}};

std::string typeOf(const fs::path& path) {
    const std::string extension = path.extension().string();
    const auto* const found = std::ranges::find(kTypes, std::string_view(extension),
                                                [](const auto& row) { return row.first; });
    return std::string(found != kTypes.end() ? found->second : "application/octet-stream");
}

bool liesIn(const fs::path& path, const fs::path& folder) {
    return std::ranges::mismatch(folder, path).in1 == folder.end();
}

} // namespace

std::optional<WebFile> findWebFile(const fs::path& folder, const std::string& urlPath) {
    // A backslash or a colon would lead away on Windows, a zero byte end the name early.
    const std::string_view unusable("\\:\0", 3);
    if (!urlPath.starts_with('/') || urlPath.find_first_of(unusable) != std::string::npos)
        return std::nullopt;
    std::error_code error;
    const fs::path root = fs::canonical(folder, error);
    if (error)
        return std::nullopt;
    fs::path path = fs::canonical(root / fs::path(urlPath).relative_path(), error);
    if (!error && fs::is_directory(path, error))
        path = fs::canonical(path / "index.html", error);
    if (error || !liesIn(path, root) || !fs::is_regular_file(path, error))
        return std::nullopt;
    return WebFile{path, typeOf(path)};
}

} // namespace oglview
