// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/child_process.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <windows.h>

namespace ogl::host {
namespace {

/// Exit codes from here on are exceptions, such as 0xC0000005 for an access violation.
constexpr DWORD kFirstException = 0xC0000000u;
/// What abort() ends a program with.
constexpr DWORD kAborted = 3;

/// One word of a command line as the C runtime takes it apart again.
std::string quoted(const std::string& word) {
    std::string text = "\"";
    size_t backslashes = 0;
    for (const char letter : word) {
        if (letter == '"') // backslashes count only before a quote: those before it are doubled
            text.append(backslashes + 1, '\\');
        backslashes = letter == '\\' ? backslashes + 1 : 0;
        text.push_back(letter);
    }
    return text.append(backslashes, '\\') + "\"";
}

class TemporaryFile {
  public:
    TemporaryFile() {
        char folder[MAX_PATH] = {};
        char path[MAX_PATH] = {};
        if (GetTempPathA(MAX_PATH, folder) != 0 && GetTempFileNameA(folder, "ogl", 0, path) != 0)
            path_ = path;
    }
    ~TemporaryFile() {
        if (!path_.empty())
            DeleteFileA(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& path() const { return path_; }

    std::vector<std::byte> contents() const {
        std::ifstream file(path_, std::ios::binary);
        const std::vector<char> text{std::istreambuf_iterator<char>(file), {}};
        const auto* first = reinterpret_cast<const std::byte*>(text.data());
        return {first, first + text.size()};
    }

  private:
    std::string path_;
};

std::string errorText(DWORD code) {
    return "system error " + std::to_string(code);
}

void setEnd(DWORD code, ChildResult& result) {
    result.exitCode = static_cast<int>(code);
    if (code < kFirstException && code != kAborted) {
        result.end = ChildResult::End::Exited;
        return;
    }
    char text[32] = {};
    std::snprintf(text, sizeof text, "exit code 0x%lx", code);
    result.end = ChildResult::End::Crashed;
    result.detail = text;
}

} // namespace

ChildResult runChild(const std::string& program, const std::vector<std::string>& arguments) {
    ChildResult result;
    const TemporaryFile output;
    std::string commandLine = quoted(program);
    for (const std::string& argument : arguments)
        commandLine += " " + quoted(argument);
    commandLine += " " + quoted(output.path());

    // The child inherits the error mode: a crash ends it without a message box.
    const UINT oldMode = SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    const BOOL started =
        CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                       CREATE_NO_WINDOW, nullptr, nullptr, &startup, &process);
    SetErrorMode(oldMode);
    if (!started) {
        result.detail = errorText(GetLastError());
        return result;
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    setEnd(code, result);
    result.output = output.contents();
    return result;
}

} // namespace ogl::host
