// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/parse_values.h"

#include "oglview/user_error.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <string_view>

namespace oglview {
namespace {

/// Reads all of `text` as a number.
template <class T> bool readAll(std::string_view text, T& value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

bool readHex(std::string_view text, unsigned& value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    return error == std::errc() && end == text.data() + text.size();
}

bool sameLetter(char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) ==
           std::tolower(static_cast<unsigned char>(b));
}

} // namespace

void checkRange(const char* name, double value, Range range) {
    if (value >= range.low && value <= range.high)
        return;
    char text[96];
    std::snprintf(text, sizeof text, "%s takes %g to %g", name, range.low, range.high);
    throw UserError(text);
}

Size parseSize(const std::string& text) {
    Size size;
    const size_t cross = text.find('x');
    if (cross == std::string::npos ||
        !readAll(std::string_view(text).substr(0, cross), size.width) ||
        !readAll(std::string_view(text).substr(cross + 1), size.height))
        throw UserError("size '" + text + "' is not of the form WIDTHxHEIGHT");
    // A row has a byte in front of it in one format, up to three behind it in the other.
    if (size.width < 1 || size.height < 1 ||
        (int64_t{size.width} * 3 + 3) * size.height > kLargestPictureBytes)
        throw UserError("size " + text +
                        " is out of range: a picture has 1 to about 700 million pixels");
    return size;
}

ogl::host::Color parseColor(const std::string& text) {
    const std::string_view digits = std::string_view(text).substr(text.starts_with('#') ? 1 : 0);
    unsigned value = 0;
    if (digits.size() != 6 || !readHex(digits, value))
        throw UserError("colour '" + text + "' is not of the form RRGGBB");
    return {static_cast<uint8_t>(value >> 16), static_cast<uint8_t>(value >> 8 & 0xff),
            static_cast<uint8_t>(value & 0xff)};
}

std::vector<double> parseNumbers(const std::string& text, size_t count, const std::string& what) {
    std::vector<double> numbers;
    std::string_view rest = text;
    for (bool more = true; more;) {
        const size_t comma = rest.find(',');
        double number = 0.0;
        if (!readAll(rest.substr(0, comma), number) || !std::isfinite(number))
            break;
        numbers.push_back(number);
        more = comma != std::string_view::npos;
        rest = more ? rest.substr(comma + 1) : std::string_view();
        if (!more && numbers.size() == count)
            return numbers;
    }
    throw UserError(what + " '" + text + "' is not " + std::to_string(count) +
                    " numbers with commas between them");
}

ogl::host::Vec3 parsePoint(const std::string& text, const std::string& what) {
    const std::vector<double> numbers = parseNumbers(text, 3, what);
    return {numbers[0], numbers[1], numbers[2]};
}

CalendarDay parseDay(const std::string& text) {
    CalendarDay day;
    char rest = 0;
    const int read =
        std::sscanf(text.c_str(), "%5d-%2d-%2d%c", &day.year, &day.month, &day.day, &rest);
    const std::chrono::year_month_day date{std::chrono::year(day.year),
                                           std::chrono::month(static_cast<unsigned>(day.month)),
                                           std::chrono::day(static_cast<unsigned>(day.day))};
    if (read != 3 || !date.ok() || day.year < 1 || day.year > 6000)
        throw UserError("there is no day '" + text + "'; write it as 2025-06-21");
    return day;
}

int parseTimeOfDay(const std::string& text) {
    int hour = 0;
    int minute = 0;
    char rest = 0;
    const int read = std::sscanf(text.c_str(), "%2d:%2d%c", &hour, &minute, &rest);
    if (read != 2 || hour < 0 || hour > 23 || minute < 0 || minute > 59)
        throw UserError("there is no time '" + text + "'; write it as 14:30");
    return hour * 60 + minute;
}

bool matches(const std::string& name, const std::string& pattern) {
    size_t n = 0;
    size_t p = 0;
    size_t star = std::string::npos; // the last * seen, and where the text after it began
    size_t afterStar = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            afterStar = n;
        } else if (p < pattern.size() && (pattern[p] == '?' || sameLetter(pattern[p], name[n]))) {
            ++p;
            ++n;
        } else if (star != std::string::npos) {
            p = star + 1;
            n = ++afterStar;
        } else {
            return false;
        }
    }
    return std::all_of(pattern.begin() + static_cast<std::ptrdiff_t>(p), pattern.end(),
                       [](char c) { return c == '*'; });
}

} // namespace oglview
