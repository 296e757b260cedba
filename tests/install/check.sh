#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# check.sh CHECK [ARGUMENT...]: one check of the installed package. CTest sets the variables.
set -euo pipefail
shopt -s nullglob

prefix=$WORK_DIR/prefix
include=$prefix/include
host=$SOURCE_DIR/tests/install/host
libraries=("$prefix/$LIB_DIR/libkit.so" "$prefix/$LIB_DIR/libgeometry.so")

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

install() {
    rm -rf "$WORK_DIR"
    "$CMAKE" --install "$BUILD_DIR" --prefix "$prefix"
}

# The headers that stand in the tree's public folders, except the foundation's one private one.
public_headers() {
    cd "$SOURCE_DIR"
    printf '%s\n' geometry/*.h Subsystems/Kit/*.h | grep -vx 'Subsystems/Kit/Formatting.h' | sort
}

installed_headers() {
    cd "$include"
    find . -type f | sed 's#^\./##' | sort
}

holds_public_headers() {
    diff <(public_headers) <(installed_headers)
}

# includes_all UMBRELLA FOLDER: every installed header of the folder is named in its umbrella.
# Export.h holds the mark of exported names only, which every other header brings along.
includes_all() {
    local header
    for header in "$include/$2"/*.h; do
        header=$2/${header##*/}
        [[ $header == "$1" || $header == */Export.h ]] ||
            grep -qF "#include \"$header\"" "$include/$1" || fail "$1 lacks $header"
    done
}

umbrella_headers_are_complete() {
    includes_all geometry/geom.h geometry
    includes_all Subsystems/Kit/Kit.h Subsystems/Kit
}

# A host needs the tessellator's library at run time only.
needs_no_tessellator_headers() {
    ! grep -rnE '# *include.*(GL/|glu)' "$include" || fail "the headers above include it"
    ! grep -rnE 'OpenGL|GLU' "$prefix/$LIB_DIR/cmake" "$prefix/$LIB_DIR/pkgconfig" ||
        fail "the package files above name it"
}

libraries_carry_names() {
    local library name
    for library in "${libraries[@]}"; do
        name=$(basename "$library")
        "$READELF" -d "$library" | grep -qE "SONAME.*\[$name\.[0-9]+\.[0-9]+\]" ||
            fail "$name: no SONAME with a major and a minor version"
        "$READELF" -d "$library" | grep -qE 'R(UN)?PATH.*\[\$ORIGIN\]' || fail "$name: no RUNPATH"
    done
}

# What may be seen is what stands directly in the two public namespaces or in their classes, and
# the type information of what a host may catch. A namespace inside them is private; the one
# exception is what the small-buffer vector's inline bodies call.
libraries_export_public_names() {
    local type_information='^(typeinfo|typeinfo name|vtable) for (kit|geom|boost)::'
    local called_inline='^kit::detail::ThrowEmptyPodVector\(\)$'
    local library names
    for library in "${libraries[@]}"; do
        names=$("$NM" -D --defined-only --demangle "$library" | cut -d' ' -f3- |
            grep -vE "$type_information|$called_inline")
        if grep -vE '^(kit|geom)::' <<<"$names" || grep -E '^\w+::[a-z]\w*::' <<<"$names"; then
            fail "$library exports the names above"
        fi
    done
}

# What a library shows, each name once. Left out is what compilers emit in different places: weak
# instances of templates, and the type information of others' classes.
exported_names() {
    "$NM" -D --defined-only --demangle "$1" | sed -nE 's/^[0-9a-f]+ [^W] //p' |
        grep -vE '^typeinfo (name )?for boost::' | LC_ALL=C sort -u
}

# A name that goes breaks hosts and one that comes is there to stay, so both are decisions.
libraries_export_the_listed_names() {
    local library list
    for library in kit geometry; do
        list=$SOURCE_DIR/tests/install/symbols-$library.txt
        diff -u "$list" <(exported_names "$prefix/$LIB_DIR/lib$library.so") ||
            fail "apply the difference to $list where it is meant"
    done
}

# each_private_header_compiles COMPILER: so that none depends on what was included before it.
each_private_header_compiles() {
    cd "$SOURCE_DIR"
    printf '%s\n' geometry/*/*.h Subsystems/Kit/Formatting.h |
        xargs -P "$(nproc)" -I{} "$1" -std=c++17 -fsyntax-only -x c++ \
            -Wall -Wextra -Wpedantic -Werror -I. -include {} /dev/null
}

each_header_compiles() {
    local compiler=$1
    installed_headers | grep '\.h$' |
        xargs -P "$(nproc)" -I{} "$compiler" -std=c++17 -fsyntax-only -x c++ \
            -Wall -Wextra -Wpedantic -Werror -I"$include" -include {} /dev/null
}

# expect_host_output FOLDER: both host programs print what they should.
expect_host_output() {
    local program
    for program in main errors; do
        LD_LIBRARY_PATH=$prefix/$LIB_DIR "$1/$program" | diff "$host/$program.txt" -
    done
}

host_builds_with_cmake() {
    local build=$WORK_DIR/cmake-host
    "$CMAKE" -G "$GENERATOR" -S "$host" -B "$build" -DCMAKE_CXX_COMPILER="$CXX" \
        -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_DISABLE_FIND_PACKAGE_OpenGL=ON
    "$CMAKE" --build "$build"
    expect_host_output "$build"
}

host_builds_with_pkg_config() {
    export PKG_CONFIG_PATH=$prefix/$LIB_DIR/pkgconfig
    local -a cflags libs
    local program build=$WORK_DIR/pkg-config-host
    read -ra cflags <<<"$("$PKG_CONFIG" --cflags geometry)"
    read -ra libs <<<"$("$PKG_CONFIG" --libs geometry)"
    mkdir -p "$build"
    for program in main errors; do
        "$CXX" -std=c++17 "${cflags[@]}" "$host/$program.cpp" -o "$build/$program" "${libs[@]}"
    done
    expect_host_output "$build"
}

# The installed tool finds its libraries by itself, also after the prefix was moved.
tool_runs_from_anywhere() {
    local moved=$WORK_DIR/moved
    rm -rf "$moved"
    cp -a "$prefix" "$moved"
    [[ $(env -u LD_LIBRARY_PATH "$moved/bin/geomtool" area - <<<'1 3 0 0 0 2 0 0 2') == 2 ]]
    ldd "$moved/bin/geomtool" | grep -F "$moved/bin/../" | grep -q libgeometry ||
        fail "the tool loads another library than the one beside it"
}

# A larger build that takes the tree in gets the two libraries and none of the programs.
serves_as_a_part_of_a_larger_build() {
    local build=$WORK_DIR/larger-build targets
    "$CMAKE" -G "$GENERATOR" -S "$SOURCE_DIR/tests/install/larger" -B "$build" \
        -DCMAKE_CXX_COMPILER="$CXX" -DGEOM_TREE="$SOURCE_DIR"
    targets=$("$CMAKE" --build "$build" --target help)
    grep -qw geometry <<<"$targets" || fail "the library is missing"
    ! grep -wE 'geomtool|gallery|\w+_test|fuzz_\w+' <<<"$targets" || fail "the targets above"
    ! grep -E '^CMAKE_BUILD_TYPE:\w+=.' "$build/CMakeCache.txt" || fail "it chose the build type"
}

readme_shows_the_host() {
    diff "$host/main.cpp" <(sed -n '/^```cpp$/,/^```$/p' "$SOURCE_DIR/README.md" | sed '1d;$d')
}

"$@"
