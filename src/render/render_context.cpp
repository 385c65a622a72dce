// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/render_context.h"

#include "gpu/gl_debug.h"
#include "gpu/gl_objects.h"
#include "ogl/host_records.h"
#include "platform/bitmap_font.h"
#include "platform/file.h"
#include "platform/own_window.h"

#include <charconv>
#include <initializer_list>
#include <locale>
#include <sstream>

namespace ogl {

namespace {

struct Vendor {
    int number;
    const char* prefix; ///< of the driver's vendor string
    const char* logName;
};
constexpr Vendor kVendors[] = {
    {kVendorNvidia, "NVIDIA", "Nvidia"},
    {kVendorAti, "ATI", "Ati"},
    {kVendorIntel, "INTEL", "Intel"},
};

std::string glText(GLenum name) {
    const GLubyte* text = glGetString(name);
    return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

/// The decimal number that the text begins with, 0 when it begins with none.
double leadingNumber(const std::string& text) {
    double number = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    return number;
}

std::string numberText(double number) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << number;
    return stream.str();
}

struct GlVersion {
    int major = 0;
    int minor = 0;
};

/// The version of the current context. Before OpenGL 3 only the version string tells it.
GlVersion readVersion() {
    GlVersion version;
    const std::string text = glText(GL_VERSION);
    const char* end = text.data() + text.size();
    const auto major = std::from_chars(text.data(), end, version.major);
    if (major.ptr != end && *major.ptr == '.')
        std::from_chars(major.ptr + 1, end, version.minor);
    if (version.major >= 3) {
        glGetIntegerv(GL_MAJOR_VERSION, &version.major);
        glGetIntegerv(GL_MINOR_VERSION, &version.minor);
    }
    return version;
}

/// Of the configuration file, with its last backslash.
std::string viewDirectory(const std::string& iniPath) {
    return iniPath.empty() ? "\\" : directoryOf(iniPath);
}

} // namespace

std::string logPathFor(const std::string& iniPath) {
    return viewDirectory(iniPath) + "ogl.log";
}

RenderContext::RenderContext(HWND viewWindow, unsigned createFlags, const char* iniPath)
    : window(viewWindow), flags(createFlags) {
    directory = viewDirectory(iniPath);
    errorLog.open(logPathFor(iniPath));
    if (!settings.load(*iniPath != '\0' ? iniPath : "space.ini"))
        logError("No options in space.ini found!");
    if ((flags & kCreateInputDevices) == 0 || !input.create(window))
        logError("Keyboard mouse problem!");
    constructed = 1;
}

RenderContext::~RenderContext() {
    input.release();
    if (opened_)
        releaseGLObjects();
    tearDown(secondary);
    tearDown(primary);
}

/// Hosts destroy a window before its view, too: what no context is there for waits for another
/// view's.
void RenderContext::releaseGLObjects() {
    if (!ogl::makeCurrent(primary))
        ogl::makeCurrent(secondary);
    fontLists_.reset();
    viewClosed();
}

void RenderContext::setSecondWindow(HWND secondWindow) {
    dropLostSurfaces();
    if (secondWindow == nullptr)
        tearDown(secondary);
    if (secondWindow == nullptr || secondary.glContext != nullptr)
        return;
    secondary.window = secondWindow;
    const int samples = static_cast<int>(settings.drawingSamples.value);
    if (createContext(secondary, samples, 1, GetDC(secondWindow)) != kContextCreated) {
        errorLog.writeOnce("Error", "Secondary GL Context init failed!", "");
        tearDown(secondary);
    } else if (!fontLists_.exists()) { // they went with the first window
        buildFont(secondary.dc);
    }
}

GLSurface* RenderContext::makeCurrent() {
    dropLostSurfaces();
    for (GLSurface* surface : {&primary, &secondary})
        if (ogl::makeCurrent(*surface))
            return surface;
    errorLog.writeOnce("Error", "No window to draw into", "");
    return nullptr;
}

void RenderContext::dropLostSurfaces() {
    dropIfLost(primary, "Primary window is gone");
    dropIfLost(secondary, "Secondary window is gone");
}

void RenderContext::dropIfLost(GLSurface& surface, const char* message) {
    if (!isLost(surface))
        return;
    tearDown(surface);
    logError(message);
}

void RenderContext::logError(const std::string& message, const std::string& value) {
    errorLog.write("Error", message, value);
}

bool RenderContext::initializeOpenGL() {
    if (!makePrimaryContext() || !checkVersions() || !checkCapabilities())
        return false;
    buildFont(primary.dc);
    // Only now: on Wine the font raises a message that buildBitmapFont has dealt with.
    installDebugOutput();
    wglMakeCurrent(nullptr, nullptr);
    glReady = 1;
    return true;
}

void RenderContext::buildFont(HDC dc) {
    fontLists_.create();
    fontListBase = fontLists_.exists() ? fontLists_.name() : 0;
    if (fontListBase == 0 || !buildBitmapFont(dc, fontListBase))
        logError("Font build failed");
}

bool RenderContext::makePrimaryContext() {
    constexpr int kGlewInitFailedAfterwards = -11;
    primary.window = window;
    HDC dc = primary.dc;
    if (window != nullptr && window == ownWindow())
        dc = ownWindowDC();
    else if (dc == nullptr)
        dc = GetDC(window);
    int result = createContext(primary, static_cast<int>(settings.drawingSamples.value), 0, dc);
    if (result == kContextCreated && glewInit() != GLEW_OK)
        result = kGlewInitFailedAfterwards;
    if (result != kContextCreated) {
        logError("Primary GL Context init failed", std::to_string(result));
        return false;
    }
    viewOpened();
    opened_ = true;
    return true;
}

bool RenderContext::checkVersions() {
    const GlVersion version = readVersion();
    double shadingLanguage = 0.0;
    if (version.major >= 1) {
        shadingLanguage = leadingNumber(glText(GL_SHADING_LANGUAGE_VERSION));
        const std::string vendorText = glText(GL_VENDOR);
        for (const Vendor& candidate : kVendors)
            if (vendorText.starts_with(candidate.prefix)) {
                vendor = candidate.number;
                errorLog.write("OpenGL", "Vendor", candidate.logName);
            }
    }
    glVersion = 100 * version.major + 10 * version.minor;
    errorLog.write("OpenGL", "Version", std::to_string(glVersion));
    errorLog.write("OpenGL", "GLSL Version", numberText(shadingLanguage));
    errorLog.write("OpenGL", "AA Format", primary.aaName);
    if (version.major < 3) {
        logError("OpenGL Version 3 required");
        return false;
    }
    if (shadingLanguage < 1.5) {
        logError("GLSL Version 1.5 required");
        return false;
    }
    return true;
}

bool RenderContext::checkCapabilities() {
    GLint maximumSamples = 0;
    glGetIntegerv(GL_MAX_COLOR_TEXTURE_SAMPLES, &maximumSamples);
    errorLog.write("OpenGL", "MaxTextureAA", std::to_string(maximumSamples));
    for (const char* extension : {"GL_ARB_texture_rectangle", "GL_ARB_texture_multisample"})
        if (!glewIsSupported(extension)) {
            logError(std::string(extension) + " not supported");
            return false;
        }
    return true;
}

} // namespace ogl
