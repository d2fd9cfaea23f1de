# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# Copies a style sheet without what only its reader needs: Qt takes each blank for a token, at each
# start of a program.
#
#   cmake -DSHEET=<file> -DPACKED=<file> -P pack-style-sheet.cmake
#
# Comments go, and so does the white space where two tokens stay apart without it; what is left of it
# becomes one blank. Texts in quotes and url(...) stay as they are.
cmake_policy(VERSION 3.25)

set(quoted "\"([^\"\\]|\\\\.)*\"|'([^'\\]|\\\\.)*'")
set(kept "url\\(([^)\"']|${quoted})*\\)|${quoted}")

# Puts a blank behind what is packed already, unless it ends with what needs none.
function(append_blank)
    if(NOT packed MATCHES "(^|[{};:,( ])$")
        set(packed "${packed} " PARENT_SCOPE)
    endif()
endfunction()

# Puts what is no blank behind what is packed already, and takes away a blank that it does not need.
# One before a colon separates two parts of a selector.
function(append_text text)
    if(text MATCHES "^[{};,)]")
        string(REGEX REPLACE " $" "" packed "${packed}")
    endif()
    if(text STREQUAL "}")
        string(REGEX REPLACE ";$" "" packed "${packed}")
    endif()
    set(packed "${packed}${text}" PARENT_SCOPE)
endfunction()

file(READ "${SHEET}" rest)
set(packed "")
while(NOT rest STREQUAL "")
    if(rest MATCHES "^/\\*")
        string(FIND "${rest}" "*/" end)
        if(end LESS 0)
            message(FATAL_ERROR "${SHEET}: a comment has no end")
        endif()
        math(EXPR length "${end} + 2")
        append_blank()
    elseif(rest MATCHES "^[ \t\r\n]+")
        string(LENGTH "${CMAKE_MATCH_0}" length)
        append_blank()
    else()
        string(REGEX MATCH "^(${kept}|[A-Za-z0-9_.#-]+|.)" text "${rest}")
        string(LENGTH "${text}" length)
        append_text("${text}")
    endif()
    string(SUBSTRING "${rest}" ${length} -1 rest)
endwhile()
string(STRIP "${packed}" packed)
file(WRITE "${PACKED}" "${packed}\n")
