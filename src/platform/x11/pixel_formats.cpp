// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "platform/x11/pixel_formats.h"

#include "platform/x11/device_context.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace ogl::x11 {
namespace {

int attribute(GLXFBConfig config, int name) {
    int value = 0;
    glXGetFBConfigAttrib(display(), config, name, &value);
    return value;
}

bool describe(GLXFBConfig config, PixelFormat& format) {
    if (!(attribute(config, GLX_RENDER_TYPE) & GLX_RGBA_BIT) ||
        !(attribute(config, GLX_DRAWABLE_TYPE) & GLX_WINDOW_BIT))
        return false;
    XVisualInfo* const visual = glXGetVisualFromFBConfig(display(), config);
    if (!visual)
        return false;
    format.config = config;
    format.visual = *visual;
    XFree(visual);
    format.configId = attribute(config, GLX_FBCONFIG_ID);
    format.doubleBuffered = attribute(config, GLX_DOUBLEBUFFER);
    format.red = attribute(config, GLX_RED_SIZE);
    format.green = attribute(config, GLX_GREEN_SIZE);
    format.blue = attribute(config, GLX_BLUE_SIZE);
    format.alpha = attribute(config, GLX_ALPHA_SIZE);
    format.depth = attribute(config, GLX_DEPTH_SIZE);
    format.stencil = attribute(config, GLX_STENCIL_SIZE);
    format.samples = attribute(config, GLX_SAMPLE_BUFFERS) ? attribute(config, GLX_SAMPLES) : 0;
    format.slow = attribute(config, GLX_CONFIG_CAVEAT) == GLX_SLOW_CONFIG;
    return true;
}

// A visual deeper than the screen's has an alpha channel that a compositor would show through.
bool isOpaque(const PixelFormat& format) {
    return format.visual.depth == DefaultDepth(display(), format.visual.screen);
}

std::vector<PixelFormat> readFormats() {
    std::vector<PixelFormat> formats;
    Display* const x = display();
    int count = 0;
    if (!x || !glXQueryExtension(x, nullptr, nullptr)) {
        if (x)
            sayOnce("the X server has no GLX");
        return formats;
    }
    GLXFBConfig* const configs = glXGetFBConfigs(x, DefaultScreen(x), &count);
    for (int i = 0; configs && i < count; ++i) {
        PixelFormat format;
        if (describe(configs[i], format))
            formats.push_back(format);
    }
    if (configs)
        XFree(configs);
    return formats;
}

// Read again as long as there are none: the display may come later.
const std::vector<PixelFormat>& allFormats() {
    static std::mutex mutex;
    static std::vector<PixelFormat> formats;
    const std::lock_guard lock(mutex);
    if (formats.empty())
        formats = readFormats();
    return formats;
}

// How far a format is from a descriptor: what is missing weighs most, then what is too much.
int distance(const PixelFormat& format, const PIXELFORMATDESCRIPTOR& wanted) {
    const auto lack = [](int have, int want) { return std::max(want - have, 0); };
    const auto excess = [](int have, int want) { return std::max(have - want, 0); };
    const int color = format.red + format.green + format.blue;
    int far = 1000 * (lack(color, wanted.cColorBits) + lack(format.alpha, wanted.cAlphaBits) +
                      lack(format.stencil, wanted.cStencilBits));
    far += 100 * lack(format.depth, wanted.cDepthBits);
    far += 10 * format.samples;
    far += excess(color, wanted.cColorBits) + excess(format.alpha, wanted.cAlphaBits) +
           excess(format.depth, wanted.cDepthBits) + excess(format.stencil, wanted.cStencilBits);
    far += format.slow ? 50000 : 0;
    far += isOpaque(format) ? 0 : 500;
    return far;
}

int chooseFormat(const PIXELFORMATDESCRIPTOR& wanted) {
    const int doubleBuffered = wanted.dwFlags & PFD_DOUBLEBUFFER ? 1 : 0;
    int best = 0;
    int bestDistance = 0;
    const auto& formats = allFormats();
    for (size_t i = 0; i < formats.size(); ++i) {
        if (formats[i].doubleBuffered != doubleBuffered)
            continue;
        const int far = distance(formats[i], wanted);
        if (best == 0 || far < bestDistance) {
            best = static_cast<int>(i) + 1;
            bestDistance = far;
        }
    }
    return best;
}

// The GLX side of one WGL attribute; false when it has none that is supported.
bool translate(int name, int value, std::vector<int>& glx) {
    static constexpr int kPairs[][2] = {
        {WGL_DOUBLE_BUFFER_ARB, GLX_DOUBLEBUFFER},
        {WGL_ALPHA_BITS_ARB, GLX_ALPHA_SIZE},
        {WGL_DEPTH_BITS_ARB, GLX_DEPTH_SIZE},
        {WGL_STENCIL_BITS_ARB, GLX_STENCIL_SIZE},
        {WGL_SAMPLES_ARB, GLX_SAMPLES},
        {WGL_SAMPLE_BUFFERS_ARB, GLX_SAMPLE_BUFFERS},
    };
    for (const auto& pair : kPairs) {
        if (pair[0] == name) {
            glx.insert(glx.end(), {pair[1], value});
            return true;
        }
    }
    switch (name) {
    case WGL_COLOR_BITS_ARB:
        glx.insert(glx.end(),
                   {GLX_RED_SIZE, value / 3, GLX_GREEN_SIZE, value / 3, GLX_BLUE_SIZE, value / 3});
        return true;
    case WGL_DRAW_TO_WINDOW_ARB:
    case WGL_SUPPORT_OPENGL_ARB:
        return value == 1; // true of every format here
    case WGL_PIXEL_TYPE_ARB:
        return value == WGL_TYPE_RGBA_ARB;
    case WGL_ACCELERATION_ARB:
        // GLX doesn't tell software drivers apart; it marks slow formats.
        glx.insert(glx.end(), {GLX_CONFIG_CAVEAT, GLX_NONE});
        return value == WGL_FULL_ACCELERATION_ARB;
    default:
        return false;
    }
}

BOOL choosePixelFormat(HDC, const int* integers, const float* floats, UINT maximum, int* formats,
                       UINT* count) {
    Display* const x = display();
    if (!x || !formats || !count)
        return FALSE;
    if (floats && *floats != 0.0f)
        sayOnce("wglChoosePixelFormatARB: float attributes are not supported");
    std::vector<int> glx{GLX_X_RENDERABLE, True,        GLX_DRAWABLE_TYPE, GLX_WINDOW_BIT,
                         GLX_RENDER_TYPE,  GLX_RGBA_BIT};
    *count = 0;
    for (const int* pair = integers; pair && *pair; pair += 2) {
        if (translate(pair[0], pair[1], glx))
            continue;
        sayOnce("wglChoosePixelFormatARB: an attribute or value is not supported");
        return FALSE;
    }
    glx.push_back(None);
    int found = 0;
    GLXFBConfig* const configs = glXChooseFBConfig(x, DefaultScreen(x), glx.data(), &found);
    const auto& all = allFormats();
    std::vector<int> numbers;
    for (int i = 0; configs && i < found; ++i) {
        const int id = attribute(configs[i], GLX_FBCONFIG_ID);
        const auto match = std::find_if(all.begin(), all.end(),
                                        [&](const PixelFormat& f) { return f.configId == id; });
        if (match != all.end())
            numbers.push_back(static_cast<int>(match - all.begin()) + 1);
    }
    if (configs)
        XFree(configs);
    std::stable_partition(numbers.begin(), numbers.end(), [&](int number) {
        return isOpaque(all[static_cast<size_t>(number) - 1]);
    });
    for (; *count < maximum && *count < numbers.size(); ++*count)
        formats[*count] = numbers[*count];
    return TRUE;
}

} // namespace

const PixelFormat* pixelFormat(int number) {
    const auto& all = allFormats();
    if (number < 1 || static_cast<size_t>(number) > all.size())
        return nullptr;
    return &all[static_cast<size_t>(number) - 1];
}

} // namespace ogl::x11

using namespace ogl::x11;

const PFNWGLCHOOSEPIXELFORMATARBPROC wglChoosePixelFormatARB = choosePixelFormat;

int ChoosePixelFormat(HDC dc, const PIXELFORMATDESCRIPTOR* descriptor) {
    if (!findDeviceContext(dc) || !descriptor)
        return 0;
    if (descriptor->iPixelType != PFD_TYPE_RGBA) {
        sayOnce("ChoosePixelFormat: only RGBA pixels are supported");
        return 0;
    }
    return chooseFormat(*descriptor);
}

int DescribePixelFormat(HDC dc, int number, UINT size, PIXELFORMATDESCRIPTOR* descriptor) {
    if (!findDeviceContext(dc))
        return 0;
    const auto total = static_cast<int>(allFormats().size());
    if (!descriptor)
        return total;
    const PixelFormat* const format = pixelFormat(number);
    if (!format || size < sizeof *descriptor)
        return 0;
    *descriptor = {};
    descriptor->nSize = sizeof *descriptor;
    descriptor->nVersion = 1;
    descriptor->dwFlags =
        PFD_DRAW_TO_WINDOW | PFD_SUPPORT_OPENGL | (format->doubleBuffered ? PFD_DOUBLEBUFFER : 0);
    descriptor->iPixelType = PFD_TYPE_RGBA;
    descriptor->cColorBits = static_cast<BYTE>(format->red + format->green + format->blue);
    descriptor->cRedBits = static_cast<BYTE>(format->red);
    descriptor->cGreenBits = static_cast<BYTE>(format->green);
    descriptor->cBlueBits = static_cast<BYTE>(format->blue);
    descriptor->cAlphaBits = static_cast<BYTE>(format->alpha);
    descriptor->cDepthBits = static_cast<BYTE>(format->depth);
    descriptor->cStencilBits = static_cast<BYTE>(format->stencil);
    return total;
}
