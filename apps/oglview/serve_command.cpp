// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/commands.h"
#include "oglview/user_error.h"
#include "oglview/web_file.h"

#include <httplib.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace oglview {
namespace {

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
    const auto size = std::filesystem::file_size(file.path, error);
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

} // namespace

int serveCommand(const ServeOptions& options) {
    if (!std::filesystem::is_directory(options.folder))
        throw UserError("there is no folder '" + options.folder + "'");
    httplib::Server server;
    setUp(server, options.folder);
    const int port = options.port == 0 ? server.bind_to_any_port(kLoopback)
                     : server.bind_to_port(kLoopback, options.port) ? options.port
                                                                    : -1;
    if (port < 0)
        throw UserError("port " + std::to_string(options.port) +
                        " is taken; --port names another one, 0 takes any");
    const bool hasPage =
        std::filesystem::exists(std::filesystem::path(options.folder) / "index.html");
    std::printf("http://%s:%d/\n", kLoopback, port);
    if (!hasPage)
        std::fprintf(stderr, "oglview: note: '%s' holds no page; oglview export writes one\n",
                     options.folder.c_str());
    std::fflush(stdout);
    return server.listen_after_bind() ? 0 : 1;
}

} // namespace oglview
