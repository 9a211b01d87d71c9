# What Debian's packages have besides what is installed: copyright and changes of each, and manual pages compressed.
# SPDX-License-Identifier: MIT
foreach(component ${CPACK_COMPONENTS_ALL})
    set(root "${CPACK_TEMPORARY_DIRECTORY}/${component}/usr/share")
    string(TOUPPER ${component} key)
    set(documents "${root}/doc/${CPACK_DEBIAN_${key}_PACKAGE_NAME}")
    file(MAKE_DIRECTORY "${documents}")
    configure_file("${CMAKE_CURRENT_LIST_DIR}/copyright" "${documents}/copyright" COPYONLY)
    configure_file("${CMAKE_CURRENT_LIST_DIR}/changelog" "${documents}/changelog.Debian" COPYONLY)
    file(GLOB pages "${root}/man/man1/*.1")
    execute_process(COMMAND gzip -9n "${documents}/changelog.Debian" ${pages}
                    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
