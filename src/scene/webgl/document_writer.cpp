// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/webgl/document_writer.h"

#include <cstring>

namespace ogl {

namespace {

constexpr size_t kBufferSize = 1u << 16;

} // namespace

DocumentWriter::DocumentWriter(std::FILE* file)
    : file_(file), buffer_(std::make_unique<char[]>(kBufferSize)), used_(buffer_.get()),
      end_(buffer_.get() + kBufferSize) {}

DocumentWriter& DocumentWriter::operator<<(std::string_view text) {
    while (!text.empty()) {
        const size_t line = text.find('\n');
        const bool ends = line != std::string_view::npos;
        std::string_view rest = text.substr(0, line);
        while (!rest.empty()) {
            const std::string_view part = rest.substr(0, kBufferSize);
            std::memcpy(room(part.size()), part.data(), part.size());
            used_ += part.size();
            rest.remove_prefix(part.size());
        }
        if (!ends)
            break;
        put('\r');
        put('\n');
        text.remove_prefix(line + 1);
    }
    return *this;
}

void DocumentWriter::empty() {
    std::fwrite(buffer_.get(), 1, static_cast<size_t>(used_ - buffer_.get()), file_);
    used_ = buffer_.get();
}

} // namespace ogl
