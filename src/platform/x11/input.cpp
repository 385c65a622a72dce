// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Keyboard and mouse state from the X server, in DirectInput's form.
#include "platform/x11/display.h"

#include <X11/XKBlib.h>

#include <array>
#include <atomic>
#include <cstring>

const GUID GUID_SysMouse = {
    0x6f1d2b60, 0xd5a0, 0x11cf, {0xbf, 0xc7, 0x44, 0x45, 0x53, 0x54, 0x00, 0x00}};
const GUID GUID_SysKeyboard = {
    0x6f1d2b61, 0xd5a0, 0x11cf, {0xbf, 0xc7, 0x44, 0x45, 0x53, 0x54, 0x00, 0x00}};
const IID IID_IDirectInput8A = {
    0xbf798030, 0x483a, 0x4da2, {0xaa, 0x99, 0x5d, 0x64, 0xed, 0x36, 0x97, 0x00}};
const DIDATAFORMAT c_dfDIKeyboard = {sizeof(DIDATAFORMAT), 256};
const DIDATAFORMAT c_dfDIMouse = {sizeof(DIDATAFORMAT), sizeof(DIMOUSESTATE)};

namespace ogl::x11 {
namespace {

// XKB's names of key positions, which hold for every layout and every set of key codes.
struct KeyRow {
    char name[5];
    int code;
};

constexpr KeyRow kKeys[] = {
    {"ESC", DIK_ESCAPE},       {"AE01", DIK_1},         {"AE02", DIK_2},
    {"AE03", DIK_3},           {"AE04", DIK_4},         {"AE05", DIK_5},
    {"AE06", DIK_6},           {"AE07", DIK_7},         {"AE08", DIK_8},
    {"AE09", DIK_9},           {"AE10", DIK_0},         {"AE11", DIK_MINUS},
    {"AE12", DIK_EQUALS},      {"BKSP", DIK_BACK},      {"TAB", DIK_TAB},
    {"AD01", DIK_Q},           {"AD02", DIK_W},         {"AD03", DIK_E},
    {"AD04", DIK_R},           {"AD05", DIK_T},         {"AD06", DIK_Y},
    {"AD07", DIK_U},           {"AD08", DIK_I},         {"AD09", DIK_O},
    {"AD10", DIK_P},           {"AD11", DIK_LBRACKET},  {"AD12", DIK_RBRACKET},
    {"RTRN", DIK_RETURN},      {"LCTL", DIK_LCONTROL},  {"AC01", DIK_A},
    {"AC02", DIK_S},           {"AC03", DIK_D},         {"AC04", DIK_F},
    {"AC05", DIK_G},           {"AC06", DIK_H},         {"AC07", DIK_J},
    {"AC08", DIK_K},           {"AC09", DIK_L},         {"AC10", DIK_SEMICOLON},
    {"AC11", DIK_APOSTROPHE},  {"TLDE", DIK_GRAVE},     {"LFSH", DIK_LSHIFT},
    {"BKSL", DIK_BACKSLASH},   {"AC12", DIK_BACKSLASH}, {"AB01", DIK_Z},
    {"AB02", DIK_X},           {"AB03", DIK_C},         {"AB04", DIK_V},
    {"AB05", DIK_B},           {"AB06", DIK_N},         {"AB07", DIK_M},
    {"AB08", DIK_COMMA},       {"AB09", DIK_PERIOD},    {"AB10", DIK_SLASH},
    {"RTSH", DIK_RSHIFT},      {"KPMU", DIK_MULTIPLY},  {"LALT", DIK_LMENU},
    {"SPCE", DIK_SPACE},       {"CAPS", DIK_CAPITAL},   {"FK01", DIK_F1},
    {"FK02", DIK_F2},          {"FK03", DIK_F3},        {"FK04", DIK_F4},
    {"FK05", DIK_F5},          {"FK06", DIK_F6},        {"FK07", DIK_F7},
    {"FK08", DIK_F8},          {"FK09", DIK_F9},        {"FK10", DIK_F10},
    {"NMLK", DIK_NUMLOCK},     {"SCLK", DIK_SCROLL},    {"KP7", DIK_NUMPAD7},
    {"KP8", DIK_NUMPAD8},      {"KP9", DIK_NUMPAD9},    {"KPSU", DIK_SUBTRACT},
    {"KP4", DIK_NUMPAD4},      {"KP5", DIK_NUMPAD5},    {"KP6", DIK_NUMPAD6},
    {"KPAD", DIK_ADD},         {"KP1", DIK_NUMPAD1},    {"KP2", DIK_NUMPAD2},
    {"KP3", DIK_NUMPAD3},      {"KP0", DIK_NUMPAD0},    {"KPDL", DIK_DECIMAL},
    {"LSGT", DIK_OEM_102},     {"FK11", DIK_F11},       {"FK12", DIK_F12},
    {"KPEN", DIK_NUMPADENTER}, {"RCTL", DIK_RCONTROL},  {"KPDV", DIK_DIVIDE},
    {"PRSC", DIK_SYSRQ},       {"RALT", DIK_RMENU},     {"PAUS", DIK_PAUSE},
    {"HOME", DIK_HOME},        {"UP", DIK_UP},          {"PGUP", DIK_PRIOR},
    {"LEFT", DIK_LEFT},        {"RGHT", DIK_RIGHT},     {"END", DIK_END},
    {"DOWN", DIK_DOWN},        {"PGDN", DIK_NEXT},      {"INS", DIK_INSERT},
    {"DELE", DIK_DELETE},      {"LWIN", DIK_LWIN},      {"RWIN", DIK_RWIN},
    {"COMP", DIK_APPS},        {"MENU", DIK_APPS},
};

// DirectInput's code of each X key code, 0 for keys that it has none for.
using KeyMap = std::array<BYTE, 256>;

KeyMap readKeyMap(Display* x) {
    KeyMap map{};
    XkbDescPtr const keyboard = XkbGetMap(x, 0, XkbUseCoreKbd);
    if (!keyboard)
        return map;
    if (XkbGetNames(x, XkbKeyNamesMask, keyboard) == Success && keyboard->names &&
        keyboard->names->keys) {
        for (int code = keyboard->min_key_code; code <= keyboard->max_key_code; ++code)
            for (const KeyRow& row : kKeys)
                if (std::strncmp(keyboard->names->keys[code].name, row.name, 4) == 0)
                    map[static_cast<size_t>(code)] = static_cast<BYTE>(row.code);
    }
    XkbFreeKeyboard(keyboard, 0, True);
    return map;
}

struct Pointer {
    int x;
    int y;
    unsigned buttons;
};

bool queryPointer(Display* x, Pointer& pointer) {
    Window root, child;
    int windowX, windowY;
    return XQueryPointer(x, DefaultRootWindow(x), &root, &child, &pointer.x, &pointer.y, &windowX,
                         &windowY, &pointer.buttons) != 0;
}

/// Destroyed by its last Release() alone.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
template <class Interface> class Counted : public Interface {
  public:
    ULONG AddRef() override { return ++references_; }
    ULONG Release() override {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

  protected:
    virtual ~Counted() = default;

  private:
    std::atomic<ULONG> references_ = 1;
};

class Device : public Counted<IDirectInputDevice8A> {
  public:
    explicit Device(const DIDATAFORMAT& format) : format_(format) {}

    HRESULT SetDataFormat(LPCDIDATAFORMAT format) override {
        if (format != &format_)
            return DIERR_INVALIDPARAM;
        formatSet_ = true;
        return DI_OK;
    }
    HRESULT SetCooperativeLevel(HWND, DWORD flags) override {
        if (flags == (DISCL_NONEXCLUSIVE | DISCL_BACKGROUND))
            return DI_OK;
        sayOnce("SetCooperativeLevel: only non-exclusive background access is supported");
        return DIERR_UNSUPPORTED;
    }
    HRESULT Acquire() override {
        if (!formatSet_)
            return DIERR_INVALIDPARAM;
        if (acquired_)
            return S_FALSE;
        acquired_ = start();
        return acquired_ ? DI_OK : DIERR_INPUTLOST;
    }
    HRESULT Unacquire() override {
        const bool was = acquired_;
        acquired_ = false;
        return was ? DI_OK : S_FALSE;
    }
    HRESULT GetDeviceState(DWORD size, LPVOID state) override {
        if (!state || size != format_.dwDataSize)
            return DIERR_INVALIDPARAM;
        if (!acquired_)
            return DIERR_NOTACQUIRED;
        return read(state) ? DI_OK : DIERR_INPUTLOST;
    }

  protected:
    virtual bool start() = 0;
    virtual bool read(LPVOID state) = 0;

  private:
    const DIDATAFORMAT& format_;
    bool formatSet_ = false;
    bool acquired_ = false;
};

class Keyboard final : public Device {
  public:
    Keyboard() : Device(c_dfDIKeyboard) {}

  private:
    bool start() override {
        Display* const x = display();
        if (x)
            map_ = readKeyMap(x);
        return x != nullptr;
    }
    bool read(LPVOID state) override {
        char pressed[32];
        auto* keys = static_cast<BYTE*>(state);
        std::memset(keys, 0, 256);
        XQueryKeymap(display(), pressed);
        for (size_t code = 0; code < map_.size(); ++code)
            if ((pressed[code / 8] >> (code % 8)) & 1)
                keys[map_[code]] = 0x80;
        keys[0] = 0; // keys without a code of their own
        return true;
    }
    KeyMap map_{};
};

class Mouse final : public Device {
  public:
    Mouse() : Device(c_dfDIMouse) {}

  private:
    bool start() override {
        Display* const x = display();
        return x && queryPointer(x, last_);
    }
    bool read(LPVOID state) override {
        Pointer now;
        if (!queryPointer(display(), now))
            return false;
        const auto pressed = [&](unsigned mask) {
            return static_cast<BYTE>(now.buttons & mask ? 0x80 : 0);
        };
        const DIMOUSESTATE mouse{
            now.x - last_.x,
            now.y - last_.y,
            0,
            {pressed(Button1Mask), pressed(Button3Mask), pressed(Button2Mask), 0}};
        std::memcpy(state, &mouse, sizeof mouse);
        last_ = now;
        return true;
    }
    Pointer last_{};
};

class DirectInput final : public Counted<IDirectInput8A> {
  public:
    HRESULT CreateDevice(REFGUID guid, LPDIRECTINPUTDEVICE8A* device, LPUNKNOWN outer) override {
        if (!device || outer)
            return DIERR_INVALIDPARAM;
        *device = nullptr;
        if (!display())
            return DIERR_DEVICENOTREG;
        if (guid == GUID_SysKeyboard)
            *device = new Keyboard;
        else if (guid == GUID_SysMouse)
            *device = new Mouse;
        return *device ? DI_OK : DIERR_DEVICENOTREG;
    }
};

} // namespace
} // namespace ogl::x11

HRESULT DirectInput8Create(HINSTANCE, DWORD version, REFIID interfaceId, LPVOID* result,
                           LPUNKNOWN outer) {
    if (!result || outer)
        return DIERR_INVALIDPARAM;
    *result = nullptr;
    if (version != DIRECTINPUT_VERSION)
        return DIERR_OLDDIRECTINPUTVERSION;
    if (!(interfaceId == IID_IDirectInput8A))
        return E_NOINTERFACE;
    *result = static_cast<IDirectInput8A*>(new ogl::x11::DirectInput);
    return DI_OK;
}
