# SPDX-License-Identifier: MIT
# Draws the pictures into DRAWN and fails unless they are those in IMAGES.
#
#   cmake -DGALLERY=program -DIMAGES=folder -DDRAWN=folder -P compare_pictures.cmake
file(REMOVE_RECURSE "${DRAWN}")
file(MAKE_DIRECTORY "${DRAWN}")
execute_process(COMMAND "${GALLERY}" "${DRAWN}" COMMAND_ERROR_IS_FATAL ANY)

file(GLOB drawn RELATIVE "${DRAWN}" "${DRAWN}/*.svg")
if(NOT drawn)
    message(FATAL_ERROR "No picture was drawn")
endif()
set(stale "")
foreach(picture IN LISTS drawn)
    execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files
                            "${DRAWN}/${picture}" "${IMAGES}/${picture}"
                    RESULT_VARIABLE differs ERROR_QUIET)
    if(differs)
        list(APPEND stale "${picture}")
    endif()
endforeach()
if(stale)
    message(FATAL_ERROR "Not as drawn (scripts/docs renews them): ${stale}")
endif()
