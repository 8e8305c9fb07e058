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

option(TOVARIN_PRECOMPILED_HEADERS "Compile once what most sources include; hides missing includes" OFF)

# tovarin_precompiled_headers(NAME name HEADERS ... LIBRARIES ...): for targets that use at least
# these libraries.
function(tovarin_precompiled_headers)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME" "HEADERS;LIBRARIES")
    if(TOVARIN_PRECOMPILED_HEADERS)
        # A target has to have a source.
        file(CONFIGURE OUTPUT ${arg_NAME}.cpp CONTENT "\n")
        add_library(${arg_NAME} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${arg_NAME}.cpp)
        set_target_properties(${arg_NAME} PROPERTIES AUTOMOC OFF)
        list(TRANSFORM arg_HEADERS REPLACE "(.+)" "<\\1>")
        target_precompile_headers(${arg_NAME} PRIVATE ${arg_HEADERS})
        target_link_libraries(${arg_NAME} PRIVATE ${arg_LIBRARIES})
        tovarin_compile_options(${arg_NAME})
    endif()
endfunction()

function(tovarin_use_precompiled target headers)
    if(TOVARIN_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} REUSE_FROM ${headers})
    endif()
endfunction()

function(tovarin_compile_options target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
        -Woverloaded-virtual -Wold-style-cast -Wcast-align -Wformat=2 -Wimplicit-fallthrough
        $<$<BOOL:${TOVARIN_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()

# tovarin_library(NAME name SOURCES ... PUBLIC libs... [PRIVATE libs...])
# One static library a folder; headers are included from the root ("model/Store.h"). What is public
# of a library that uses Qt names a part of Qt or a library that does.
function(tovarin_library)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME" "SOURCES;PUBLIC;PRIVATE")
    add_library(${arg_NAME} STATIC ${arg_SOURCES})
    target_include_directories(${arg_NAME} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${arg_NAME} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE})
    tovarin_compile_options(${arg_NAME})
    if(Qt6::Quick IN_LIST arg_PUBLIC)
        tovarin_use_precompiled(${arg_NAME} quick_headers)
    elseif(arg_PUBLIC)
        tovarin_use_precompiled(${arg_NAME} core_headers)
    endif()
endfunction()
