# The target docs: pages of the public headers in docs/html of the build folder.
# SPDX-License-Identifier: MIT
find_program(DOXYGEN doxygen)
if(DOXYGEN)
    orvo_public_headers(documented_headers)
    list(FILTER documented_headers INCLUDE REGEX "^(contracts|libraries|orvoshare|platform/qt)/")
    list(TRANSFORM documented_headers REPLACE "(.+)" "\"${PROJECT_SOURCE_DIR}/src/\\1\"")
    list(JOIN documented_headers " " documented_headers)
    configure_file("${PROJECT_SOURCE_DIR}/docs/Doxyfile.in" "${PROJECT_BINARY_DIR}/docs/Doxyfile" @ONLY)
    add_custom_target(docs COMMAND "${DOXYGEN}" "${PROJECT_BINARY_DIR}/docs/Doxyfile" VERBATIM)
endif()
