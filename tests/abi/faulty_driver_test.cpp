// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A driver that raises structured exceptions: functions in the place of those that the library
// imports fault at a chosen call, otherwise they hand on.
#include "abi/library.h"
#include "abi/wall_scene.h"
#include "platform/fault_guard.h"
#include "support/dib.h"
#include "support/environment.h"
#include "support/host_window.h"
#include "support/temp_folder.h"

#include <cstring>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace ogl::test {
namespace {

int* volatile nowhere = nullptr;

void fault() {
    *nowhere = 1;
}

/// The library's pointer to a function that it imports, null when it imports none of the name.
void** importOf(const std::string& name) {
    auto* const base = reinterpret_cast<uint8_t*>(library().module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* from =
        reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
    for (; from->Name != 0; ++from) {
        const auto* names =
            reinterpret_cast<const IMAGE_THUNK_DATA*>(base + from->OriginalFirstThunk);
        auto* address = reinterpret_cast<IMAGE_THUNK_DATA*>(base + from->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++address) {
            const auto* import =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            if (name == reinterpret_cast<const char*>(import->Name))
                return reinterpret_cast<void**>(&address->u1.Function);
        }
    }
    return nullptr;
}

/// Another function in the place of an imported one, for as long as this lives.
template <class Function> class Replaced {
  public:
    Replaced(const char* name, Function* replacement) : place_(importOf(name)) {
        if (place_ == nullptr)
            throw std::runtime_error(std::string("the library does not import ") + name);
        VirtualProtect(place_, sizeof *place_, PAGE_READWRITE, &protection_);
        real = reinterpret_cast<Function*>(*place_);
        *place_ = reinterpret_cast<void*>(replacement);
    }
    ~Replaced() { *place_ = reinterpret_cast<void*>(real); }
    Replaced(const Replaced&) = delete;
    Replaced& operator=(const Replaced&) = delete;

    static inline Function* real = nullptr;

  private:
    void** place_;
    DWORD protection_ = 0;
};

/// Which call of which function faults.
struct Fault {
    std::string function;
    int call;
    bool handled = false; ///< by the driver itself
};
Fault due;

void countDown(const char* function) {
    if (due.function != function || --due.call != 0)
        return;
    if (due.handled)
        EXPECT_FALSE(runGuarded([] { fault(); }));
    else
        fault();
}

int WINAPI chooseFormat(HDC dc, const PIXELFORMATDESCRIPTOR* wanted) {
    countDown("ChoosePixelFormat");
    return Replaced<decltype(chooseFormat)>::real(dc, wanted);
}
BOOL WINAPI setFormat(HDC dc, int format, const PIXELFORMATDESCRIPTOR* descriptor) {
    countDown("SetPixelFormat");
    return Replaced<decltype(setFormat)>::real(dc, format, descriptor);
}
HGLRC WINAPI createGL(HDC dc) {
    countDown("wglCreateContext");
    return Replaced<decltype(createGL)>::real(dc);
}
BOOL WINAPI makeGLCurrent(HDC dc, HGLRC context) {
    if (context != nullptr)
        countDown("wglMakeCurrent");
    return Replaced<decltype(makeGLCurrent)>::real(dc, context);
}
PROC WINAPI findGL(LPCSTR name) {
    countDown("wglGetProcAddress");
    return Replaced<decltype(findGL)>::real(name);
}
bool sharingRefused = false;
BOOL WINAPI shareGL(HGLRC first, HGLRC second) {
    return sharingRefused ? FALSE : Replaced<decltype(shareGL)>::real(first, second);
}
BOOL WINAPI deleteGL(HGLRC context) {
    countDown("wglDeleteContext");
    return Replaced<decltype(deleteGL)>::real(context);
}

/// A driver that hands every call on but the one that is due.
struct FaultyDriver {
    Replaced<decltype(chooseFormat)> choose{"ChoosePixelFormat", chooseFormat};
    Replaced<decltype(setFormat)> set{"SetPixelFormat", setFormat};
    Replaced<decltype(createGL)> create{"wglCreateContext", createGL};
    Replaced<decltype(makeGLCurrent)> makeCurrent{"wglMakeCurrent", makeGLCurrent};
    Replaced<decltype(findGL)> find{"wglGetProcAddress", findGL};
    Replaced<decltype(shareGL)> share{"wglShareLists", shareGL};
    Replaced<decltype(deleteGL)> remove{"wglDeleteContext", deleteGL};
};

class FaultyDriverTest : public testing::Test {
  protected:
    RenderContext* create() {
        return library().create(window_.handle(), 0, folder_.hostFile("space.ini").c_str());
    }
    void expectPicture(RenderContext* view, HWND second = nullptr) {
        ASSERT_NE(view, nullptr) << log();
        const Dib dib(120, 90);
        library().drawInWindow(view, scene_.record(), 1, 1, second, dib.handle());
        EXPECT_EQ(dib.at(60, 45), (Pixel{255, 255, 255}));
        EXPECT_EQ(dib.at(2, 2), WallScene::kPaper);
    }
    std::string log() const { return readFile(folder_.file("ogl.log")); }

    const Library& library_ = library(); ///< loading it asks for debug runs
    // Contexts of debug runs are made by another function.
    ScopedEnvironment plainContexts_{"OGL_DEBUG", "0"};
    TempFolder folder_;
    HostWindow window_{120, 90};
    WallScene scene_;
    FaultyDriver driver_;
};

TEST_F(FaultyDriverTest, ViewsAreRefusedWithTheStepThatFaulted) {
    const struct {
        Fault fault;
        int code;
    } rows[] = {
        {{"ChoosePixelFormat", 1}, -1}, {{"ChoosePixelFormat", 2}, -3},
        {{"SetPixelFormat", 1}, -3},    {{"wglCreateContext", 1}, -3},
        {{"wglMakeCurrent", 1}, -3},    {{"wglGetProcAddress", 1}, -3},
        {{"SetPixelFormat", 2}, -6},    {{"wglCreateContext", 2}, -8},
        {{"wglMakeCurrent", 2}, -10},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault.function + " " + std::to_string(row.fault.call));
        due = row.fault;
        EXPECT_EQ(create(), nullptr);
        EXPECT_EQ(due.call, 0) << "never called";
        EXPECT_NE(log().find("Primary GL Context init failed=" + std::to_string(row.code) + "\n"),
                  std::string::npos)
            << log();
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        EXPECT_EQ(FindWindowA("DummyClass", nullptr), nullptr);
    }
    RenderContext* const view = create();
    expectPicture(view);
    scene_.handBack();
    library().release(view);
}

TEST_F(FaultyDriverTest, ASecondWindowThatFaultsLeavesTheFirst) {
    due = {};
    RenderContext* const view = create();
    const HostWindow second(80, 60);
    for (const Fault& fault : {Fault{"SetPixelFormat", 2}, {"wglCreateContext", 1}}) {
        due = fault;
        expectPicture(view, second.handle());
        EXPECT_EQ(due.call, 0) << "never called";
        EXPECT_NE(log().find("Secondary GL Context init failed!"), std::string::npos);
    }
    expectPicture(view, second.handle());
    scene_.handBack();
    due = {"wglDeleteContext", 1}; // also at the end
    library().release(view);
    EXPECT_LE(due.call, 0);
}

TEST_F(FaultyDriverTest, AWindowWhoseContextSharesNothingIsNotDrawn) {
    due = {};
    RenderContext* const view = create();
    const HostWindow second(80, 60);
    sharingRefused = true;
    expectPicture(view, second.handle());
    EXPECT_EQ(WindowFromDC(wglGetCurrentDC()), window_.handle());
    EXPECT_NE(log().find("Secondary GL Context init failed!"), std::string::npos);
    EXPECT_EQ(create(), nullptr);
    EXPECT_NE(log().find("Primary GL Context init failed=-12\n"), std::string::npos) << log();
    sharingRefused = false;
    expectPicture(view, second.handle());
    EXPECT_EQ(WindowFromDC(wglGetCurrentDC()), second.handle());
    scene_.handBack();
    library().release(view);
}

TEST_F(FaultyDriverTest, WhatADriverHandlesItselfCountsForNothing) {
    due = {"wglCreateContext", 2, true};
    RenderContext* const view = create();
    EXPECT_EQ(due.call, 0);
    expectPicture(view);
    scene_.handBack();
    library().release(view);
}

} // namespace
} // namespace ogl::test
