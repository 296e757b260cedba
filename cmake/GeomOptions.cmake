# SPDX-License-Identifier: MIT
# How every target of the project is compiled.

# Results are the same on every compiler and at every optimisation level only when
# a*b + c stays two roundings. GCC contracts it to one fused operation by default wherever
# the target has such an instruction, and ignores the standard pragma.
#
# GCC's vectoriser forgets the option: of neighbouring a*b - c and d*e + f it makes one fused
# operation (vfmaddsub) where the target has one, as with -march=native. There it is off.
function(geom_target_fuses result)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        set(${result} FALSE PARENT_SCOPE)
        return()
    endif()
    include(CheckCXXSourceCompiles)
    get_directory_property(options COMPILE_OPTIONS)
    list(FILTER options EXCLUDE REGEX "\\$<")
    list(JOIN options " " CMAKE_REQUIRED_FLAGS)
    check_cxx_source_compiles("
        #if !defined(__FMA__) && !defined(__FMA4__) && !defined(__AVX512F__)
        #error \"no fused operations\"
        #endif
        int main() {}" ${result})
    set(${result} "${${result}}" PARENT_SCOPE)
endfunction()

add_library(geom_options INTERFACE)
target_compile_features(geom_options INTERFACE cxx_std_17)
if(MSVC)
    target_compile_options(geom_options INTERFACE /fp:precise /W4)
else()
    target_compile_options(geom_options INTERFACE -ffp-contract=off)
    geom_target_fuses(GEOM_TARGET_FUSES)
    if(GEOM_TARGET_FUSES)
        target_compile_options(geom_options INTERFACE -fno-tree-vectorize)
    endif()
    target_compile_options(geom_options INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast)
    if(GEOM_WERROR)
        target_compile_options(geom_options INTERFACE -Werror)
    endif()
endif()
if(GEOM_SANITIZE)
    target_compile_options(geom_options INTERFACE
        -fsanitize=${GEOM_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g)
    target_link_options(geom_options INTERFACE -fsanitize=${GEOM_SANITIZE})
    # GCC's instrumentation hides from its own analysis what the standard library initialises.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(geom_options INTERFACE -Wno-maybe-uninitialized)
    endif()
endif()

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Include paths and options shared by the libraries: headers are included as
# <geometry/...> and <Subsystems/Kit/...>, in the tree and after installation alike.
function(geom_configure_library target)
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:geom_options>)
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "SHARED_LIBRARY")
        geom_configure_linking(${target})
    endif()
endfunction()

# A library shows its public names only, misses none that it uses, and finds the others of the
# project beside itself wherever they are installed. Sanitizers bring names of their own.
# Before 1.0 a minor version may break hosts, so the name that they load carries it.
function(geom_configure_linking target)
    set_target_properties(${target} PROPERTIES
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
        INSTALL_RPATH "$ORIGIN")
    if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND NOT GEOM_SANITIZE)
        set(map "${PROJECT_SOURCE_DIR}/cmake/exports.map")
        target_link_options(${target} PRIVATE
            "LINKER:--no-undefined" "LINKER:--version-script=${map}")
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${map}")
    endif()
endfunction()
