# What `cmake --install` lays down: the library with its headers, the programs, and how other builds find them.
include(CMakePackageConfigHelpers)

install(TARGETS orvoshare EXPORT OrvoShareTargets)
foreach(folder platform contracts orvoshare libraries)
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/src/${folder}"
            DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/OrvoShare" FILES_MATCHING PATTERN "*.h"
            PATTERN "platform/qt" EXCLUDE)
endforeach()
install(TARGETS orvo)
if(ORVO_DESKTOP)
    install(TARGETS orvo-desktop)
    install(DIRECTORY "${PROJECT_BINARY_DIR}/share/locale" DESTINATION "${CMAKE_INSTALL_DATADIR}")
    install(FILES "${PROJECT_SOURCE_DIR}/docs/orvo-desktop.1"
            DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
endif()
install(DIRECTORY "${PROJECT_BINARY_DIR}/share/orvoshare" DESTINATION "${CMAKE_INSTALL_DATADIR}")
install(FILES "${PROJECT_SOURCE_DIR}/docs/orvo.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
install(FILES "${PROJECT_SOURCE_DIR}/src/cli/completion/orvo"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DOCDIR}")

install(EXPORT OrvoShareTargets NAMESPACE OrvoShare::
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/OrvoShare")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/OrvoShareConfigVersion.cmake"
                                 COMPATIBILITY SameMinorVersion)
file(WRITE "${PROJECT_BINARY_DIR}/OrvoShareConfig.cmake"
     "include(\"\${CMAKE_CURRENT_LIST_DIR}/OrvoShareTargets.cmake\")\n")
install(FILES "${PROJECT_BINARY_DIR}/OrvoShareConfig.cmake"
              "${PROJECT_BINARY_DIR}/OrvoShareConfigVersion.cmake"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/OrvoShare")

# The way from the pkg-config file to the prefix, so that an installed tree may be moved.
file(RELATIVE_PATH path_to_prefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file("${PROJECT_SOURCE_DIR}/cmake/orvoshare.pc.in" "${PROJECT_BINARY_DIR}/orvoshare.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/orvoshare.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
