// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/add_option.h"
#include "oglview/subcommand.h"
#include "oglview/user_error.h"

#include <httplib.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
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

/// A file that may be handed out.
struct WebFile {
    fs::path path;
    std::string type; ///< its media type
};

/// The file of `folder` for the path of a URL (decoded, starting with a slash); a folder means its
/// index.html. Nothing when there is none, or when it lies outside of `folder`, be it by dots or by
/// a link.
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

constexpr const char* kLoopback = "127.0.0.1";

/// Pages of other sites cannot reach the server under a name of theirs.
bool isOwnName(const std::string& host) {
    const std::string name = host.substr(0, host.rfind(':'));
    return name == kLoopback || name == "localhost";
}

/// Streams the file as it is: compressing on the way takes longer than loopback does.
void sendFile(const WebFile& file, httplib::Response& response) {
    const auto stream = std::make_shared<std::ifstream>(file.path, std::ios::binary);
    std::error_code error;
    const auto size = fs::file_size(file.path, error);
    if (!*stream || error) {
        response.status = 404;
        return;
    }
    if (size == 0)
        return response.set_content("", file.type);
    response.set_content_provider(
        size, file.type, [stream](size_t offset, size_t length, httplib::DataSink& sink) {
            std::array<char, 1 << 16> part;
            stream->seekg(static_cast<std::streamoff>(offset));
            stream->read(part.data(), static_cast<std::streamsize>(std::min(length, part.size())));
            sink.write(part.data(), static_cast<size_t>(stream->gcount()));
            return stream->gcount() > 0;
        });
}

void setUp(httplib::Server& server, const std::string& folder) {
    server.set_default_headers(
        {{"Cache-Control", "no-cache"}, {"X-Content-Type-Options", "nosniff"}});
    server.Get(".*", [folder](const httplib::Request& request, httplib::Response& response) {
        if (!isOwnName(request.get_header_value("Host"))) {
            response.status = 403;
            return;
        }
        if (const auto file = findWebFile(folder, request.path))
            sendFile(*file, response);
        else
            response.status = 404;
    });
}

struct Serve {
    std::string folder;
    int port = 8000; ///< 0 = any that is free

    void addTo(CLI::App& command) {
        command.add_option("FOLDER", folder, "Folder of the page")->required();
        addNumber<int>(command, "--port", port, {0, 65535}, "Port to listen on; 0 takes any (8000)")
            ->type_name("N");
    }
    int run(const std::string& program) const;
};

int Serve::run(const std::string&) const {
    if (!fs::is_directory(folder))
        throw UserError("there is no folder '" + folder + "'");
    httplib::Server server;
    setUp(server, folder);
    const int bound = port == 0                              ? server.bind_to_any_port(kLoopback)
                      : server.bind_to_port(kLoopback, port) ? port
                                                             : -1;
    if (bound < 0)
        throw UserError("port " + std::to_string(port) +
                        " is taken; --port names another one, 0 takes any");
    std::printf("http://%s:%d/\n", kLoopback, bound);
    if (!fs::exists(fs::path(folder) / "index.html"))
        std::fprintf(stderr, "oglview: note: '%s' holds no page; oglview export writes one\n",
                     folder.c_str());
    std::fflush(stdout);
    return server.listen_after_bind() ? 0 : 1;
}

} // namespace

Subcommand serveCommand() {
    return makeSubcommand<Serve>("serve", "Show exported models in this machine's browser");
}

} // namespace oglview
