// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "scene/webgl/number_text.h"

#include <cstdio>
#include <memory>
#include <string_view>
#include <type_traits>

namespace ogl {

/// Writes a text document through a buffer of its own, which empties at the end. Errors are not
/// noticed.
class DocumentWriter {
  public:
    /// `file`: open for writing bytes; stays the caller's.
    explicit DocumentWriter(std::FILE* file);
    ~DocumentWriter() { empty(); }
    DocumentWriter(const DocumentWriter&) = delete;
    DocumentWriter& operator=(const DocumentWriter&) = delete;

    /// Adds text; every line feed becomes carriage return and line feed.
    DocumentWriter& operator<<(std::string_view text);
    /// Adds a number as writeNumber() has it.
    template <class T>
    requires std::is_arithmetic_v<T> DocumentWriter& operator<<(T number) {
        used_ = writeNumber(room(kNumberTextSize), number);
        return *this;
    }
    /// Adds one character as it stands.
    void put(char character) {
        *room(1) = character;
        ++used_;
    }
    /// Adds numbers: `before` and the first one, a comma and the next one, and so on.
    template <class... Numbers> void numbers(char before, Numbers... values) {
        char* to = room(sizeof...(values) * (kNumberTextSize + 1));
        ((*to++ = before, before = ',', to = writeNumber(to, values)), ...);
        used_ = to;
    }

  private:
    /// The place for the next `bytes` bytes.
    char* room(size_t bytes) {
        if (bytes > static_cast<size_t>(end_ - used_))
            empty();
        return used_;
    }
    void empty();

    std::FILE* file_;
    std::unique_ptr<char[]> buffer_;
    char* used_;
    char* end_;
};

} // namespace ogl
