# SPDX-License-Identifier: MIT
# cmake -DEXPECTED=FILE -P expect_output.cmake -- PROGRAM [ARGUMENT...]
# Runs a program and fails when it does, or when it prints anything else than the file holds.
set(command "")
set(behind FALSE)
math(EXPR last "${CMAKE_ARGC} - 1")
foreach(i RANGE ${last})
    if(behind)
        list(APPEND command "${CMAKE_ARGV${i}}")
    elseif(CMAKE_ARGV${i} STREQUAL "--")
        set(behind TRUE)
    endif()
endforeach()

execute_process(COMMAND ${command} OUTPUT_VARIABLE printed RESULT_VARIABLE result)
file(READ "${EXPECTED}" expected)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "exit status ${result}")
endif()
if(NOT printed STREQUAL expected)
    message(FATAL_ERROR "expected:\n${expected}\nprinted:\n${printed}")
endif()
