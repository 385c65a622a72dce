// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/system.h"

#include "support/temp_folder.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#include <stdexcept>
#include <sys/stat.h>
#include <windows.h>

// After windows.h, whose names it uses.
#include <psapi.h>

namespace ogl::test {

int processId() {
    return static_cast<int>(GetCurrentProcessId());
}

size_t residentBytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.WorkingSetSize;
}

void setEnvironment(const std::string& name, const char* value) {
    _putenv_s(name.c_str(), value != nullptr ? value : "");
}

int redirectDescriptor(int descriptor, const std::string& path) {
    std::fflush(nullptr);
    const int saved = _dup(descriptor);
    const int file =
        _open(path.c_str(), _O_WRONLY | _O_CREAT | _O_TRUNC | _O_BINARY, _S_IREAD | _S_IWRITE);
    if (saved < 0 || file < 0 || _dup2(file, descriptor) < 0)
        throw std::runtime_error("cannot redirect output to " + path);
    _close(file);
    return saved;
}

void restoreDescriptor(int descriptor, int saved) {
    std::fflush(nullptr);
    _dup2(saved, descriptor);
    _close(saved);
}

FileSizeLimit::FileSizeLimit(size_t) {}
FileSizeLimit::~FileSizeLimit() = default;

bool FileSizeLimit::isPossible() {
    return false;
}

std::string programPath() {
    char path[MAX_PATH];
    const DWORD length = GetModuleFileNameA(nullptr, path, MAX_PATH);
    return {path, length};
}

namespace {

/// Sets variables for the child, which inherits the block, and puts the old values back.
class InheritedVariables {
  public:
    explicit InheritedVariables(const std::vector<std::pair<std::string, std::string>>& variables) {
        for (const auto& [name, value] : variables) {
            const char* old = std::getenv(name.c_str());
            saved_.emplace_back(name, old != nullptr ? old : "");
            setEnvironment(name, value.c_str());
        }
    }
    ~InheritedVariables() {
        for (const auto& [name, value] : saved_)
            setEnvironment(name, value.c_str());
    }
    InheritedVariables(const InheritedVariables&) = delete;
    InheritedVariables& operator=(const InheritedVariables&) = delete;

  private:
    std::vector<std::pair<std::string, std::string>> saved_;
};

} // namespace

ProcessResult runProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::vector<std::pair<std::string, std::string>>& variables) {
    ProcessResult result;
    std::string commandLine = "\"" + program + "\"";
    for (const std::string& argument : arguments)
        commandLine += " \"" + argument + "\"";

    // A file, not a pipe: what Wine starts along with the first window inherits the handle too and
    // would keep a pipe open for ever.
    const TempFolder folder;
    const std::string outputPath = folder.file("output");
    SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    const HANDLE output = CreateFileA(outputPath.c_str(), GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      &inheritable, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (output == INVALID_HANDLE_VALUE)
        return result;
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = output;
    startup.hStdError = output;
    PROCESS_INFORMATION process{};
    BOOL started = FALSE;
    {
        const InheritedVariables inherited(variables);
        started = CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0,
                                 nullptr, nullptr, &startup, &process);
    }
    CloseHandle(output);
    if (started) {
        WaitForSingleObject(process.hProcess, INFINITE);
        DWORD code = 0;
        if (GetExitCodeProcess(process.hProcess, &code))
            result.exitCode = static_cast<int>(code);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        result.output = readFile(outputPath);
        // Programs write text: the system ends its lines in its own way.
        for (size_t at = 0; (at = result.output.find("\r\n", at)) != std::string::npos;)
            result.output.erase(at, 1);
    }
    return result;
}

bool platformLayerIsOurs() {
    return false;
}

bool childrenPassVariablesToDrivers() {
    return false; // Wine's driver sees the environment that Wine itself was started with
}

std::string moduleExtension() {
    return ".dll";
}

} // namespace ogl::test
