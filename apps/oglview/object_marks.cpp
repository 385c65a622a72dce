// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/object_marks.h"

#include <utility>

namespace oglview {
namespace {

using ogl::host::kNone;
using ogl::host::ObjectId;

// The name stands to the right below the pointer, clear of it.
constexpr int kNameRight = 18;
constexpr int kNameBelow = 26;

/// The text in ASCII, which the library's font has: a question mark stands for every other
/// character of UTF-8.
std::string asciiText(const std::string& text) {
    std::string result;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        const bool continues = byte >= 0x80 && byte < 0xc0;
        if (byte >= 0x20 && byte < 0x7f)
            result.push_back(character);
        else if (!continues)
            result.push_back('?');
    }
    return result;
}

} // namespace

std::string ObjectMarks::nameOf(ObjectId object) const {
    const std::string& name = builder_.objectName(object);
    return name.empty() ? "object " + std::to_string(object) : name;
}

void ObjectMarks::highlight(ObjectId object) {
    if (object == kNone)
        return;
    uint32_t bits = object == pointed_ ? ogl::kHighlightMarked : 0;
    bits |= selected_.contains(object) ? ogl::kHighlightSelected : 0;
    builder_.setObjectHighlight(object, bits);
}

bool ObjectMarks::pointAt(ObjectId object, int x, int y) {
    if (object == kNone && pointed_ == kNone)
        return false;
    const ObjectId before = std::exchange(pointed_, object);
    highlight(before);
    highlight(object);
    if (object == kNone)
        hideName();
    else
        builder_.setTooltip(asciiText(nameOf(object)), x + kNameRight, y + kNameBelow);
    return true;
}

void ObjectMarks::select(bool add) {
    const std::set<ObjectId> before = selected_;
    if (!add)
        selected_.clear();
    if (pointed_ != kNone && selected_.erase(pointed_) == 0)
        selected_.insert(pointed_);
    for (const ObjectId object : before)
        highlight(object);
    for (const ObjectId object : selected_)
        highlight(object);
}

void ObjectMarks::hideName() {
    builder_.setTooltip({}, 0, 0);
}

} // namespace oglview
