// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/system.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ogl::test {

int processId() {
    return static_cast<int>(getpid());
}

size_t residentBytes() {
    size_t total = 0;
    size_t resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

void setEnvironment(const std::string& name, const char* value) {
    if (value != nullptr)
        setenv(name.c_str(), value, 1);
    else
        unsetenv(name.c_str());
}

int redirectDescriptor(int descriptor, const std::string& path) {
    std::fflush(nullptr);
    const int saved = dup(descriptor);
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (saved < 0 || file < 0 || dup2(file, descriptor) < 0)
        throw std::runtime_error("cannot redirect output to " + path);
    close(file);
    return saved;
}

void restoreDescriptor(int descriptor, int saved) {
    std::fflush(nullptr);
    dup2(saved, descriptor);
    close(saved);
}

FileSizeLimit::FileSizeLimit(size_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN); // the write fails instead
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}

FileSizeLimit::~FileSizeLimit() {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, SIG_DFL);
}

bool FileSizeLimit::isPossible() {
    return true;
}

std::string programPath() {
    char path[4096];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    return length > 0 ? std::string(path, static_cast<size_t>(length)) : std::string();
}

ProcessResult runProgram(const std::string& program, const std::vector<std::string>& arguments,
                         const std::vector<std::pair<std::string, std::string>>& variables) {
    ProcessResult result;
    int ends[2];
    if (pipe(ends) != 0)
        return result;
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);

    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], 1);
        dup2(ends[1], 2);
        close(ends[0]);
        close(ends[1]);
        for (const auto& [name, value] : variables)
            setenv(name.c_str(), value.c_str(), 1);
        execv(program.c_str(), argv.data());
        _exit(127);
    }
    close(ends[1]);
    char buffer[4096];
    for (ssize_t count; (count = read(ends[0], buffer, sizeof buffer)) > 0;)
        result.output.append(buffer, static_cast<size_t>(count));
    close(ends[0]);
    int status = 0;
    if (child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status))
        result.exitCode = WEXITSTATUS(status);
    return result;
}

bool platformLayerIsOurs() {
    return true;
}

bool childrenPassVariablesToDrivers() {
    return true;
}

std::string moduleExtension() {
    return ".so";
}

} // namespace ogl::test
