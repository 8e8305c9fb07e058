# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT

# What every target of this project is built with, and the short way to declare one.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_compile_definitions(
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_FOREACH
    QT_NO_KEYWORDS
    QT_NO_JAVA_STYLE_ITERATORS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400
)

function(tovarin_compile_options target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
        -Woverloaded-virtual -Wold-style-cast -Wcast-align -Wformat=2 -Wimplicit-fallthrough
        $<$<BOOL:${TOVARIN_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()

# tovarin_library(NAME name SOURCES ... PUBLIC libs... [PRIVATE libs...])
# One static library a folder; headers are included from the root ("model/Store.h").
function(tovarin_library)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME" "SOURCES;PUBLIC;PRIVATE")
    add_library(${arg_NAME} STATIC ${arg_SOURCES})
    target_include_directories(${arg_NAME} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${arg_NAME} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE})
    tovarin_compile_options(${arg_NAME})
endfunction()
