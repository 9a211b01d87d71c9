# The target docs: pages of the public headers in docs/html of the build folder.
# SPDX-License-Identifier: MIT
find_program(DOXYGEN doxygen)
if(DOXYGEN)
    configure_file("${PROJECT_SOURCE_DIR}/docs/Doxyfile.in" "${PROJECT_BINARY_DIR}/docs/Doxyfile" @ONLY)
    add_custom_target(docs COMMAND "${DOXYGEN}" "${PROJECT_BINARY_DIR}/docs/Doxyfile" VERBATIM)
endif()
