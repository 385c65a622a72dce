// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/web_folder.h"

#include "oglview/image_file.h"
#include "oglview/user_error.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace oglview {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSessions = "Sessions";
constexpr const char* kDocument = "scene.js";

[[noreturn]] void failWith(const std::string& what, const std::error_code& error) {
    throw UserError(what + ": " + error.message());
}

/// "dec12.png" or "tex12.png".
bool isTextureName(std::string_view name) {
    if ((!name.starts_with("dec") && !name.starts_with("tex")) || !name.ends_with(".png"))
        return false;
    const std::string_view number = name.substr(3, name.size() - 7);
    return !number.empty() &&
           std::ranges::all_of(number, [](char c) { return c >= '0' && c <= '9'; });
}

std::string jsonText(const std::string& name) {
    std::string text = "\"";
    for (const char c : name) {
        if (c == '"' || c == '\\')
            text += '\\';
        text += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
    }
    return text + '"';
}

} // namespace

WebFolder::WebFolder(const std::string& document) {
    const fs::path path = fs::absolute(document).lexically_normal();
    sceneFolder_ = path.parent_path();
    folder_ = sceneFolder_.parent_path().parent_path();
    if (path.filename() != kDocument || sceneFolder_.parent_path().filename() != kSessions ||
        sceneFolder_.filename().empty())
        throw UserError("'" + document +
                        "' has not the form FOLDER/Sessions/NAME/scene.js, where the "
                        "page finds it");
}

fs::path WebFolder::document() const {
    return sceneFolder_ / kDocument;
}

void WebFolder::prepareScene() const {
    std::error_code error;
    fs::create_directories(sceneFolder_, error);
    if (error)
        failWith("cannot make the folder '" + sceneFolder_.string() + "'", error);
    std::vector<fs::path> old = {document()};
    for (const auto& entry : fs::directory_iterator(sceneFolder_))
        if (isTextureName(entry.path().filename().string()))
            old.push_back(entry.path());
    for (const fs::path& path : old)
        if (fs::remove(path, error); error)
            failWith("cannot replace '" + path.string() + "'", error);
}

void WebFolder::writePage(const fs::path& source) const {
    std::error_code error;
    fs::copy(source, folder_, fs::copy_options::recursive | fs::copy_options::overwrite_existing,
             error);
    if (error)
        failWith("cannot copy the viewer page from '" + source.string() + "' to '" +
                     folder_.string() + "'",
                 error);
    writeSceneList();
}

void WebFolder::writeSceneList() const {
    const fs::path sessions = sceneFolder_.parent_path();
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(sessions))
        if (entry.path() != sceneFolder_ && fs::exists(entry.path() / kDocument))
            names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    names.push_back(sceneName());
    std::string text = "{\"scenes\": [";
    for (size_t k = 0; k < names.size(); ++k)
        text += (k > 0 ? ", " : "") + jsonText(names[k]);
    text += "]}\n";
    writeWholeFile((sessions / "scenes.json").string(), {text.begin(), text.end()});
}

} // namespace oglview
