// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A box with a text and a button, where somebody can click it: under a window manager. On a bare
// server, such as a render machine's, it would stop the program for ever; there, and without any
// server, the message goes to standard error.
#include "platform/win32.h"
#include "platform/x11/display.h"

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace ogl::x11 {
namespace {

constexpr int kMargin = 24;
constexpr int kButtonWidth = 80;
constexpr const char* kButtonText = "OK";

bool hasWindowManager(Display* connection) {
    const Atom check = XInternAtom(connection, "_NET_SUPPORTING_WM_CHECK", True);
    if (check == None)
        return false;
    Atom type = None;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(connection, DefaultRootWindow(connection), check, 0, 1, False, XA_WINDOW,
                       &type, &format, &count, &left, &data);
    if (data != nullptr)
        XFree(data);
    return type == XA_WINDOW && count == 1;
}

class MessageBox {
  public:
    MessageBox(Display* connection, XFontStruct* font, std::string text, const char* caption)
        : connection_(connection), font_(font), text_(std::move(text)),
          close_(XInternAtom(connection, "WM_DELETE_WINDOW", False)) {
        const int screen = DefaultScreen(connection);
        lineHeight_ = font->ascent + font->descent;
        width_ = std::max(textWidth(text_), kButtonWidth) + 2 * kMargin;
        height_ = 5 * lineHeight_ + 2 * kMargin;
        window_ =
            XCreateSimpleWindow(connection, DefaultRootWindow(connection), 0, 0,
                                static_cast<unsigned>(width_), static_cast<unsigned>(height_), 0,
                                BlackPixel(connection, screen), WhitePixel(connection, screen));
        XStoreName(connection, window_, caption);
        XSetWMProtocols(connection, window_, &close_, 1);
        XSelectInput(connection, window_, ExposureMask | KeyPressMask | ButtonReleaseMask);
        context_ = XCreateGC(connection, window_, 0, nullptr);
        XSetForeground(connection, context_, BlackPixel(connection, screen));
        XSetFont(connection, context_, font->fid);
        XMapRaised(connection, window_);
    }
    ~MessageBox() {
        XFreeGC(connection_, context_);
        XDestroyWindow(connection_, window_);
    }
    MessageBox(const MessageBox&) = delete;
    MessageBox& operator=(const MessageBox&) = delete;

    /// Returns once the button is clicked, Return or Escape is pressed, or the box is closed.
    void wait() {
        for (;;) {
            XEvent event;
            XNextEvent(connection_, &event);
            if (event.type == Expose)
                draw();
            else if (answers(event))
                return;
        }
    }

  private:
    int textWidth(const std::string& text) const {
        return XTextWidth(font_, text.data(), static_cast<int>(text.size()));
    }
    int buttonLeft() const { return (width_ - kButtonWidth) / 2; }
    int buttonTop() const { return height_ - kMargin - 2 * lineHeight_; }

    void drawText(int centerX, int baseline, const std::string& text) const {
        XDrawString(connection_, window_, context_, centerX - textWidth(text) / 2, baseline,
                    text.data(), static_cast<int>(text.size()));
    }

    void draw() const {
        drawText(width_ / 2, kMargin + font_->ascent, text_);
        XDrawRectangle(connection_, window_, context_, buttonLeft(), buttonTop(), kButtonWidth,
                       static_cast<unsigned>(2 * lineHeight_));
        drawText(width_ / 2, buttonTop() + lineHeight_ / 2 + font_->ascent, kButtonText);
    }

    bool answers(XEvent& event) const {
        if (event.type == KeyPress) {
            const KeySym key = XLookupKeysym(&event.xkey, 0);
            return key == XK_Return || key == XK_KP_Enter || key == XK_Escape || key == XK_space;
        }
        if (event.type == ButtonRelease)
            return event.xbutton.x >= buttonLeft() &&
                   event.xbutton.x <= buttonLeft() + kButtonWidth &&
                   event.xbutton.y >= buttonTop() &&
                   event.xbutton.y <= buttonTop() + 2 * lineHeight_;
        return event.type == ClientMessage && static_cast<Atom>(event.xclient.data.l[0]) == close_;
    }

    Display* connection_;
    XFontStruct* font_;
    std::string text_;
    Atom close_;
    int lineHeight_ = 0;
    int width_ = 0;
    int height_ = 0;
    Window window_ = None;
    GC context_ = nullptr;
};

/// Shows the box and waits for its answer. False when there is nobody to answer it.
bool showBox(const char* text, const char* caption) {
    const char* name = std::getenv("DISPLAY");
    if (name == nullptr || *name == '\0')
        return false;
    Display* const connection = openConnection();
    if (connection == nullptr)
        return false;
    XFontStruct* const font =
        hasWindowManager(connection) ? XLoadQueryFont(connection, "fixed") : nullptr;
    if (font != nullptr) {
        MessageBox(connection, font, text, caption).wait();
        XFreeFont(connection, font);
    }
    closeConnection(connection);
    return font != nullptr;
}

} // namespace
} // namespace ogl::x11

int MessageBoxA(HWND, LPCSTR text, LPCSTR caption, UINT) {
    const char* const shownText = text != nullptr ? text : "";
    const char* const shownCaption = caption != nullptr ? caption : "Error";
    if (!ogl::x11::showBox(shownText, shownCaption)) {
        std::fprintf(stderr, "%s: %s\n", shownCaption, shownText);
        std::fflush(stderr);
    }
    return IDOK;
}
