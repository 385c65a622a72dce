// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "support/system.h"

#include <cstdlib>
#include <string>

namespace ogl::test {

/// Sets an environment variable (null removes it) until the object goes.
class ScopedEnvironment {
  public:
    ScopedEnvironment(const std::string& name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name.c_str())) {
            hadValue_ = true;
            oldValue_ = old;
        }
        setEnvironment(name_, value);
    }
    ~ScopedEnvironment() { setEnvironment(name_, hadValue_ ? oldValue_.c_str() : nullptr); }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

  private:
    std::string name_;
    bool hadValue_ = false;
    std::string oldValue_;
};

} // namespace ogl::test
