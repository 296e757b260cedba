# SPDX-License-Identifier: MIT
# geom_add_test(name SOURCES file... [PRIVATE_ROOMS])
#
# One test program of GoogleTest cases, each known to CTest as name.Suite.Case. Programs link the
# shared library as a host does; those that test private rooms link its objects instead and have
# the label private_rooms.
add_custom_target(private_rooms_tests)

function(geom_add_test name)
    cmake_parse_arguments(arg "PRIVATE_ROOMS" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    set(labels "")
    if(arg_PRIVATE_ROOMS)
        target_link_libraries(${name} PRIVATE geometry_private)
        add_dependencies(private_rooms_tests ${name})
        set(labels LABELS private_rooms)
    else()
        target_link_libraries(${name} PRIVATE geom::geometry)
    endif()
    target_link_libraries(${name} PRIVATE geom_options geom_test_support
                                          GTest::gmock GTest::gtest_main
                                          ${arg_LIBRARIES})
    gtest_discover_tests(${name} TEST_PREFIX ${name}.
                         DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
                         PROPERTIES TIMEOUT 600 ${labels})
endfunction()
