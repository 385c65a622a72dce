// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Values of the command line. Each function throws UserError for text that it cannot take.
#pragma once

#include "host/scene_parts.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace oglview {

/// Bytes of the largest picture, 3 per pixel: picture files count them in 31 bits.
inline constexpr int64_t kLargestPictureBytes = 0x7fffffff;

struct Size {
    int width = 0;
    int height = 0;
};

struct Range {
    double low;
    double high;
};

/// Throws unless the value lies in the range. `name` names it in the message.
void checkRange(const char* name, double value, Range range);

/// "1024x768", at most kLargestPictureBytes.
Size parseSize(const std::string& text);

/// "RRGGBB" or "#RRGGBB", hexadecimal.
ogl::host::Color parseColor(const std::string& text);

/// Exactly `count` numbers with commas between them. `what` names the value in the message.
std::vector<double> parseNumbers(const std::string& text, size_t count, const std::string& what);

/// "X,Y,Z".
ogl::host::Vec3 parsePoint(const std::string& text, const std::string& what);

struct CalendarDay {
    int year = 0;
    int month = 0; ///< 1 .. 12
    int day = 0;
};

/// "2025-06-21", a day that there is, of the years 1 to 6000.
CalendarDay parseDay(const std::string& text);

/// "14:30" as minutes of the day.
int parseTimeOfDay(const std::string& text);

/// Whether `name` fits `pattern`, in which * stands for any text and ? for one character. Upper and
/// lower case ASCII letters are the same.
bool matches(const std::string& name, const std::string& pattern);

} // namespace oglview
