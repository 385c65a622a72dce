// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/x11/display.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <set>
#include <string>
#include <unordered_map>

namespace ogl::x11 {
namespace {

struct ErrorState {
    unsigned count = 0;
    int scopes = 0;
};

// Never destroyed: other threads and libraries may still report errors while the process ends.
struct Connections {
    std::mutex mutex;
    std::unordered_map<Display*, ErrorState> errors;
    XErrorHandler previousHandler = nullptr;
    Display* shared = nullptr;
    std::set<std::string> said;
};

Connections& connections() {
    static auto* const instance = new Connections;
    return *instance;
}

int handleError(Display* connection, XErrorEvent* error) {
    Connections& all = connections();
    XErrorHandler previous = nullptr;
    {
        const std::lock_guard lock(all.mutex);
        const auto own = all.errors.find(connection);
        if (own == all.errors.end()) {
            previous = all.previousHandler;
        } else {
            ++own->second.count;
            if (own->second.scopes > 0)
                return 0;
        }
    }
    if (previous)
        return previous(connection, error);
    const char* debug = std::getenv("OGL_DEBUG");
    if (debug && std::strcmp(debug, "1") == 0) {
        char text[128] = "";
        XGetErrorText(connection, error->error_code, text, sizeof text);
        std::fprintf(stderr, "ogl: X error %s, request %d.%d, resource 0x%lx\n", text,
                     error->request_code, error->minor_code, error->resourceid);
    }
    return 0;
}

// The error handler above and the driver's own hooks must not vanish with the library's code: once
// there is a connection, the module that holds this code stays loaded.
void keepLoaded() {
    Dl_info here;
    if (dladdr(reinterpret_cast<void*>(&handleError), &here) && here.dli_fname)
        dlopen(here.dli_fname, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
}

void sayNoDisplay() {
    const char* name = std::getenv("DISPLAY");
    sayOnce(name && *name ? ("cannot open the X display " + std::string(name)).c_str()
                          : "cannot open an X display: DISPLAY is not set");
}

Display* connect(Connections& all) {
    static const bool threads = [] {
        XInitThreads();
        keepLoaded();
        return true;
    }();
    (void)threads;
    Display* connection = XOpenDisplay(nullptr);
    if (!connection)
        return nullptr;
    const std::lock_guard lock(all.mutex);
    all.errors.emplace(connection, ErrorState{});
    const XErrorHandler previous = XSetErrorHandler(handleError);
    if (previous != handleError)
        all.previousHandler = previous;
    return connection;
}

} // namespace

Display* display() {
    static std::mutex opening;
    const std::lock_guard lock(opening);
    Connections& all = connections();
    if (!all.shared)
        all.shared = connect(all);
    if (!all.shared)
        sayNoDisplay();
    return all.shared;
}

Display* openConnection() {
    Display* connection = connect(connections());
    if (!connection)
        sayNoDisplay();
    return connection;
}

void closeConnection(Display* connection) {
    XCloseDisplay(connection);
    Connections& all = connections();
    const std::lock_guard lock(all.mutex);
    all.errors.erase(connection);
}

static unsigned errorCount(Display* connection) {
    Connections& all = connections();
    const std::lock_guard lock(all.mutex);
    return all.errors[connection].count;
}

static void addScopes(Display* connection, int change) {
    Connections& all = connections();
    const std::lock_guard lock(all.mutex);
    all.errors[connection].scopes += change;
}

ErrorScope::ErrorScope(Display* connection)
    : connection_(connection), before_(errorCount(connection)) {
    addScopes(connection, 1);
}

ErrorScope::~ErrorScope() {
    addScopes(connection_, -1);
}

bool ErrorScope::failed() const {
    XSync(connection_, False);
    return errorCount(connection_) != before_;
}

bool windowSize(Window window, Size& size) {
    Display* const x = display();
    if (!x || !window)
        return false;
    const ErrorScope scope(x);
    Window root;
    int left, top;
    unsigned width, height, border, depth;
    if (!XGetGeometry(x, window, &root, &left, &top, &width, &height, &border, &depth))
        return false;
    size = {static_cast<int>(width), static_cast<int>(height)};
    return true;
}

void sayOnce(const char* text) {
    Connections& all = connections();
    {
        const std::lock_guard lock(all.mutex);
        if (!all.said.insert(text).second)
            return;
    }
    std::fprintf(stderr, "ogl: %s\n", text);
}

} // namespace ogl::x11
