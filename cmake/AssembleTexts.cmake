# SPDX-FileCopyrightText: The ogl authors
# SPDX-License-Identifier: MIT

# cmake -DSCRIPT=resources.rc -DOUTPUT=folder -P AssembleTexts.cmake
# Writes the files that a resource script names into a folder as they go into the library: lines
# #include "file" (relative to the script) replaced by that file, once a text, its leading comment
# left out; plain ASCII; lines ended by CR LF.
cmake_minimum_required(VERSION 3.25)
get_filename_component(folder ${SCRIPT} DIRECTORY)
file(STRINGS ${SCRIPT} lines REGEX "^[0-9]+[ \t]")
set(names)
foreach(line IN LISTS lines)
    string(REGEX MATCH "\"([^\"]+)\"$" matched "${line}")
    list(APPEND names ${CMAKE_MATCH_1})
endforeach()
list(REMOVE_DUPLICATES names)

foreach(name IN LISTS names)
    file(READ ${folder}/${name} text)
    set(included)
    while(text MATCHES "(^|\n)(#include \"([^\"\n]+)\"\n)")
        set(line "${CMAKE_MATCH_2}")
        set(part "${CMAKE_MATCH_3}")
        set(part_text "")
        if(NOT part IN_LIST included)
            list(APPEND included ${part})
            file(READ ${folder}/${part} part_text)
            string(REGEX REPLACE "^(//[^\n]*\n)+" "" part_text "${part_text}")
        endif()
        string(FIND "${text}" "${line}" start)
        string(LENGTH "${line}" length)
        string(SUBSTRING "${text}" 0 ${start} before)
        math(EXPR start "${start} + ${length}")
        string(SUBSTRING "${text}" ${start} -1 after)
        set(text "${before}${part_text}${after}")
    endwhile()
    if(text MATCHES "([^\t\n -~])")
        message(FATAL_ERROR "${name}: '${CMAKE_MATCH_1}' is not plain ASCII")
    endif()
    string(REPLACE "\n" "\r\n" text "${text}")
    file(WRITE ${OUTPUT}/${name} "${text}")
endforeach()
