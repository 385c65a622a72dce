// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Options that understand their value as they are read.
#pragma once

#include "oglview/parse_values.h"

#include <CLI/CLI.hpp>

#include <string>

namespace oglview {

/// Adds an option whose text `read` turns into the value, or refuses with a UserError.
template <class Value, class Read>
CLI::Option* addText(CLI::App& command, const char* name, Value& value, Read read,
                     const char* what) {
    return command.add_option_function<std::string>(
        name, [&value, read](const std::string& text) { value = read(text); }, what);
}

/// Adds an option that takes a number within the range; `value` may be an optional one.
template <class Number, class Value>
CLI::Option* addNumber(CLI::App& command, const char* name, Value& value, Range range,
                       const char* what) {
    return command.add_option_function<Number>(
        name,
        [&value, name, range](const Number& number) {
            checkRange(name, static_cast<double>(number), range);
            value = number;
        },
        what);
}

/// Adds --size. `what` names the default.
inline void addSize(CLI::App& command, Size& size, const char* what) {
    addText(command, "--size", size, parseSize, what)->type_name("WxH");
}

} // namespace oglview
