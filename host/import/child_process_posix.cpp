// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/child_process.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ogl::host {
namespace {

constexpr int kCannotExecute = 127;

/// A file without a name, which no crash can leave behind.
class UnnamedFile {
  public:
    UnnamedFile() {
        std::error_code error;
        std::string path = (std::filesystem::temp_directory_path(error) / "import-XXXXXX").string();
        file_ = mkostemp(path.data(), O_CLOEXEC);
        if (file_ >= 0)
            unlink(path.c_str());
    }
    ~UnnamedFile() {
        if (file_ >= 0)
            close(file_);
    }
    UnnamedFile(const UnnamedFile&) = delete;
    UnnamedFile& operator=(const UnnamedFile&) = delete;

    int get() const { return file_; }

    std::vector<std::byte> contents() const {
        struct stat status {};
        if (fstat(file_, &status) != 0 || status.st_size <= 0)
            return {};
        std::vector<std::byte> bytes(static_cast<size_t>(status.st_size));
        size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t got =
                pread(file_, bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
            if (got < 0 && errno == EINTR)
                continue;
            if (got <= 0)
                break;
            done += static_cast<size_t>(got);
        }
        bytes.resize(done);
        return bytes;
    }

  private:
    int file_ = -1;
};

/// Between fork and exec: only calls that are safe there.
[[noreturn]] void becomeChild(const char* program, char* const* arguments, int output) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const rlimit noCoreFile{0, 0};
    setrlimit(RLIMIT_CORE, &noCoreFile);
    const int nothing = open("/dev/null", O_RDWR);
    for (int standard = 0; standard <= 2 && nothing >= 0; ++standard)
        dup2(nothing, standard);
    fcntl(output, F_SETFD, 0);
    execv(program, arguments);
    _exit(kCannotExecute);
}

ChildResult::End endOf(int status, ChildResult& result) {
    if (WIFSIGNALED(status)) {
        result.detail = strsignal(WTERMSIG(status));
        return ChildResult::End::Crashed;
    }
    result.exitCode = WEXITSTATUS(status);
    if (result.exitCode != kCannotExecute)
        return ChildResult::End::Exited;
    result.detail = "it cannot be executed";
    return ChildResult::End::NotStarted;
}

} // namespace

ChildResult runChild(const std::string& program, const std::vector<std::string>& arguments) {
    ChildResult result;
    const UnnamedFile output;
    if (output.get() < 0) {
        result.detail = std::strerror(errno);
        return result;
    }
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    words.push_back("/dev/fd/" + std::to_string(output.get()));
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);

    const pid_t child = fork();
    if (child == 0)
        becomeChild(program.c_str(), pointers.data(), output.get());
    if (child < 0) {
        result.detail = std::strerror(errno);
        return result;
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR)
        ;
    result.end = endOf(status, result);
    result.output = output.contents();
    return result;
}

} // namespace ogl::host
