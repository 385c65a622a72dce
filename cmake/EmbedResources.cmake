# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# cmake -DSCRIPT=resources.rc -DFOLDER=folder -DOUTPUT=resources.cpp -P EmbedResources.cmake
# Writes the files that a resource script names, found in the folder, into a C++ source, as
# platform/x11/resources.h has it.
file(STRINGS ${SCRIPT} lines REGEX "^[0-9]+[ \t]")
set(blobs "")
set(rows "")
set(count 0)
foreach(line IN LISTS lines)
    string(REGEX MATCH "^([0-9]+)[ \t]+([A-Za-z_]+)[ \t]+\"([^\"]+)\"$" matched "${line}")
    set(number ${CMAKE_MATCH_1})
    set(type ${CMAKE_MATCH_2})
    file(READ ${FOLDER}/${CMAKE_MATCH_3} hex HEX)
    string(LENGTH "${hex}" digits)
    math(EXPR size "${digits} / 2")
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
    # A zero byte more, so that an empty file is an array, too.
    string(APPEND blobs "constexpr unsigned char kBytes${number}[] = {${bytes}0x00};\n")
    string(APPEND rows "    {${number}u, \"${type}\", kBytes${number}, ${size}u},\n")
    math(EXPR count "${count} + 1")
endforeach()
file(WRITE ${OUTPUT} "// Made from the resource script.
#include \"platform/x11/resources.h\"

namespace ogl::x11 {
namespace {
${blobs}} // namespace

const EmbeddedResource kEmbeddedResources[] = {
${rows}};
const size_t kEmbeddedResourceCount = ${count};

} // namespace ogl::x11
")
