# Compiler settings and helpers that every target of the tree uses.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

set(FRIENDUI_SANITIZE "" CACHE STRING "Sanitizers to build with, such as address,undefined or thread")
option(FRIENDUI_COVERAGE "Instrument for gcov" OFF)

add_library(friendui_settings INTERFACE)
target_compile_definitions(friendui_settings INTERFACE
    QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
    QT_DEPRECATED_WARNINGS QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
if(MSVC)
    target_compile_options(friendui_settings INTERFACE /W4 /utf-8 /permissive- /Zc:__cplusplus)
else()
    target_compile_options(friendui_settings INTERFACE -Wall -Wextra -Wpedantic -Wshadow)
endif()
if(NOT MSVC)
    # The module carries only what it uses: each relocation is paid for at load.
    target_compile_options(friendui_settings INTERFACE
        $<$<CONFIG:Release>:-ffunction-sections -fdata-sections>)
endif()
if(FRIENDUI_SANITIZE)
    target_compile_options(friendui_settings INTERFACE
        -fsanitize=${FRIENDUI_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(friendui_settings INTERFACE -fsanitize=${FRIENDUI_SANITIZE})
endif()
if(FRIENDUI_COVERAGE)
    target_compile_options(friendui_settings INTERFACE --coverage)
    target_link_options(friendui_settings INTERFACE --coverage)
endif()

# friendui_library(NAME SOURCES... [LINK targets...])
# A static link target of the product. Its own folder is not an include path:
# files are included as "folder/file.h" from the root of the tree.
function(friendui_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}")
    target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE friendui_settings)
endfunction()

# friendui_module_options(NAME MAP)
# A module that is loaded at run time and exports nothing but what the map names.
function(friendui_module_options name map)
    if(WIN32)
        set_target_properties(${name} PROPERTIES PREFIX "")
        # Windows' linkers take the same names as a list of their own. Without one, MinGW's
        # exports all that has no other mark.
        file(STRINGS "${map}" exports REGEX "^ +[A-Za-z0-9_]+;$")
        list(TRANSFORM exports REPLACE ";$" "")
        list(JOIN exports "\n" exports)
        set(definition "${CMAKE_CURRENT_BINARY_DIR}/${name}.def")
        file(CONFIGURE OUTPUT "${definition}" CONTENT "EXPORTS\n@exports@\n" @ONLY)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${map}")
        target_sources(${name} PRIVATE "${definition}")
        if(MINGW)
            target_link_options(${name} PRIVATE $<$<CONFIG:Release>:-Wl,--gc-sections -s>)
        endif()
    endif()
    if(UNIX AND NOT APPLE)
        target_link_options(${name} PRIVATE
            "-Wl,--version-script=${map}" -Wl,-z,defs
            $<$<CONFIG:Release>:-Wl,--gc-sections -Wl,-z,pack-relative-relocs -s>)
        set_target_properties(${name} PROPERTIES LINK_DEPENDS "${map}")
    endif()
    if(FRIENDUI_SANITIZE)
        # The sanitizer's runtime is in the executable, not in the module.
        get_target_property(options ${name} LINK_OPTIONS)
        list(REMOVE_ITEM options -Wl,-z,defs)
        set_target_properties(${name} PROPERTIES LINK_OPTIONS "${options}")
    endif()
endfunction()
