# The Debian packages that `cpack` makes, one for each component of OrvoInstall.cmake but the licence, which they have
# as their copyright file.
# SPDX-License-Identifier: MIT
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvoshare)
set(CPACK_PACKAGE_VENDOR "The OrvoShare authors")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_PACKAGE_CONTACT "The OrvoShare authors <authors@orvoshare.invalid>")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_SET_DESTDIR ON)  # so that what is installed may hold its own path
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/lib")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/packaging/debian/Finish.cmake")

# orvo_package(<component> <package> SECTION <section> SUMMARY <line> TEXT <line>... [DEPENDS <package>...]
#              [RECOMMENDS <package>...] [CONTROL <file>...]); those depended on are of this project, in the same
# version.
macro(orvo_package component package)
    cmake_parse_arguments(ARG "" "SECTION;SUMMARY" "TEXT;DEPENDS;RECOMMENDS;CONTROL" ${ARGN})
    string(TOUPPER ${component} key)
    list(TRANSFORM ARG_DEPENDS APPEND " (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
    string(REPLACE ";" ", " depends "${ARG_DEPENDS}")
    string(REPLACE ";" ", " recommends "${ARG_RECOMMENDS}")
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${ARG_SECTION})
    set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${depends}")
    set(CPACK_DEBIAN_${key}_PACKAGE_RECOMMENDS "${recommends}")
    set(CPACK_DEBIAN_${key}_PACKAGE_CONTROL_EXTRA "${ARG_CONTROL}")
    string(REPLACE ";" "\n" text "${ARG_TEXT}")
    set(CPACK_DEBIAN_${key}_DESCRIPTION "${ARG_SUMMARY}\n${text}")
endmacro()

set(triggers "${PROJECT_SOURCE_DIR}/packaging/debian/triggers")
set(CPACK_COMPONENTS_ALL "")
orvo_package(library liborvoshare${PROJECT_VERSION_MAJOR}
    SECTION libs
    SUMMARY "shared module for desktop personal information managers"
    TEXT "Address lists and business cards, to-dos, categories and a record store"
         "in one file, for programs that embed them. With the texts in other languages."
    CONTROL "${triggers}")
orvo_package(terminal orvo
    SECTION utils DEPENDS liborvoshare${PROJECT_VERSION_MAJOR} RECOMMENDS xdg-utils
    SUMMARY "addresses and to-dos in a terminal"
    TEXT "Imports, lists, looks up, edits and exports people's addresses and to-dos:"
         "vCard, vCalendar and iCalendar files in, the same files out.")
if(ORVO_DESKTOP)
    orvo_package(qtlibrary liborvoshareqt${PROJECT_VERSION_MAJOR}
        SECTION libs DEPENDS liborvoshare${PROJECT_VERSION_MAJOR}
        SUMMARY "shared module for personal information managers, in Qt windows"
        TEXT "Gives the address views and lists of OrvoShare real windows in a program"
             "that uses Qt 6."
        CONTROL "${triggers}")
    orvo_package(desktop orvo-desktop
        SECTION utils DEPENDS liborvoshare${PROJECT_VERSION_MAJOR}
        RECOMMENDS xdg-utils qt6-translations-l10n shared-mime-info
        SUMMARY "addresses and to-dos in a window"
        TEXT "An address book with a list, icons and business cards, looked up as you type,"
             "and a list of to-dos. Everything stays on your own machine, in one file.")
    set(qt_library liborvoshareqt${PROJECT_VERSION_MAJOR})
    set(qt_headers qt6-base-dev)
endif()
orvo_package(development liborvoshare-dev
    SECTION libdevel DEPENDS liborvoshare${PROJECT_VERSION_MAJOR} ${qt_library} RECOMMENDS ${qt_headers}
    SUMMARY "shared module for personal information managers, for building"
    TEXT "Headers of OrvoShare, and how CMake and pkg-config find it.")
include(CPack)
