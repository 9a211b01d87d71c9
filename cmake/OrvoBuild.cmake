# How every folder of the house is built: one small library a folder, its sources listed, its links telling who may know
# whom.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")

find_program(CCACHE ccache)
if(CCACHE)
    # What ccache needs to know that a source with a precompiled header was compiled before.
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros "${CCACHE}")
endif()

# Every target of the project takes these; an installed one passes none of them on.
add_library(orvo_flags INTERFACE)
target_compile_options(orvo_flags INTERFACE -Wall -Wextra -Wpedantic -Werror -Wshadow
                                            -Wnon-virtual-dtor -Wold-style-cast -Wcast-qual
                                            -Wformat=2 -Wimplicit-fallthrough)
if(ORVO_SANITIZE)
    # Where a source is mostly the templates of its headers, most of the compiler's time was the optimizer's.
    target_compile_options(orvo_flags INTERFACE $<IF:$<BOOL:$<TARGET_PROPERTY:ORVO_UNOPTIMIZED>>,-O0,-O1>
                                                -fsanitize=address,undefined
                                                -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(orvo_flags INTERFACE -fsanitize=address,undefined)
endif()

option(ORVO_JOIN_SOURCES "Compile small sources that read the same heavy headers together" OFF)

# orvo_join_sources(<target>...): where all is compiled anyway, the sources of these are compiled a few at a time, as
# most of the time goes to headers that they have in common. What is edited and built again goes source by source.
function(orvo_join_sources)
    set(sources_together 8)
    if(ORVO_JOIN_SOURCES)
        set_target_properties(${ARGN} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${sources_together})
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            # It takes what is a source's own for a header's, as the joined source includes it.
            foreach(target ${ARGN})
                target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
            endforeach()
        endif()
    endif()
endfunction()

# orvo_library(<name> SOURCES <file>... [PUBLIC <target>...] [PRIVATE <target>...])
function(orvo_library name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;PUBLIC;PRIVATE")
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE $<BUILD_INTERFACE:orvo_flags>
                                                               ${ARG_PRIVATE})
    set_property(GLOBAL APPEND PROPERTY ORVO_LIBRARIES ${name})
endfunction()

# orvo_headers(<name> [LINK <target>...]): a folder that holds headers only.
function(orvo_headers name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "LINK")
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${name} INTERFACE ${ARG_LINK})
endfunction()

# orvo_program(<name> SOURCES <file>... LINK <target>...)
function(orvo_program name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LINK")
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${name} PRIVATE orvo_flags ${ARG_LINK})
endfunction()

# orvo_precompile(<target> <header>...): compiles these headers once for the sources of a target, and of those that
# reuse them.
function(orvo_precompile target)
    target_precompile_headers(${target} PRIVATE ${ARGN})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # Without a time in it the same header gives the same file, and ccache the same results.
        target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
endfunction()

# orvo_test_headers: the headers that every test has, compiled once for all of them.
function(orvo_test_headers)
    file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/test_headers.cpp" "")
    add_library(orvo_test_headers OBJECT "${CMAKE_CURRENT_BINARY_DIR}/test_headers.cpp")
    set_target_properties(orvo_test_headers PROPERTIES ORVO_UNOPTIMIZED ON)
    target_link_libraries(orvo_test_headers PRIVATE orvo_flags GTest::gmock)
    orvo_precompile(orvo_test_headers <gmock/gmock.h> <gtest/gtest.h>)
endfunction()

# orvo_test(<library> SOURCES <file>... [LINK <target>...]): one test program a folder; it links that folder's
# library and what the library itself may know, so that a leak between floors does not link.
function(orvo_test library)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LINK")
    set(name ${library}_test)
    add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES ORVO_UNOPTIMIZED ON)
    target_precompile_headers(${name} REUSE_FROM orvo_test_headers)
    # As the headers were compiled for, and as Qt wants it.
    target_compile_options(${name} PRIVATE -fPIC)
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/src"
                                               "${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(${name} PRIVATE orvo_flags ${library} ${ARG_LINK} GTest::gmock
                                          GTest::gtest_main)
    include(GoogleTest)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT ${ORVO_TEST_LIMIT} PROPERTIES TIMEOUT ${ORVO_TEST_LIMIT})
endfunction()
