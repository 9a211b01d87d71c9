# What `cmake --install` lays down: the libraries with their headers, the programs, and how other builds and desktops
# find them. The components are the packages of OrvoPackage.cmake.
include(CMakePackageConfigHelpers)
include(OrvoHeaders)

set(cmake_folder "${CMAKE_INSTALL_LIBDIR}/cmake/OrvoShare")
set(header_folder "${CMAKE_INSTALL_INCLUDEDIR}/OrvoShare")
set(packaging "${PROJECT_SOURCE_DIR}/packaging")
set(application org.orvoshare.OrvoDesktop)

install(TARGETS orvoshare EXPORT OrvoShareTargets
        LIBRARY COMPONENT library NAMELINK_COMPONENT development)
install(DIRECTORY "${PROJECT_BINARY_DIR}/share/orvoshare" DESTINATION "${CMAKE_INSTALL_DATADIR}"
        COMPONENT library)

install(TARGETS orvo RUNTIME COMPONENT terminal)
install(FILES "${PROJECT_SOURCE_DIR}/docs/orvo.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1"
        COMPONENT terminal)
install(FILES "${PROJECT_SOURCE_DIR}/src/cli/completion/orvo"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT terminal)

if(ORVO_DESKTOP)
    install(TARGETS orvoshareqt EXPORT OrvoShareQtTargets
            LIBRARY COMPONENT qtlibrary NAMELINK_COMPONENT development)
    install(TARGETS orvo-desktop RUNTIME COMPONENT desktop)
    install(DIRECTORY "${PROJECT_BINARY_DIR}/share/locale" DESTINATION "${CMAKE_INSTALL_DATADIR}"
            COMPONENT desktop)
    install(DIRECTORY "${PROJECT_BINARY_DIR}/share/orvo-desktop" DESTINATION "${CMAKE_INSTALL_DATADIR}"
            COMPONENT desktop)
    install(FILES "${PROJECT_SOURCE_DIR}/docs/orvo-desktop.1"
            DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT desktop)
    install(FILES "${packaging}/${application}.desktop"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT desktop)
    install(FILES "${packaging}/${application}.metainfo.xml"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo" COMPONENT desktop)
    set(icons "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
    foreach(side 16 32 48 128)
        install(FILES "${packaging}/icons/${side}.png" DESTINATION "${icons}/${side}x${side}/apps"
                RENAME "${application}.png" COMPONENT desktop)
    endforeach()
    install(FILES "${packaging}/icons/${application}.svg" DESTINATION "${icons}/scalable/apps"
            COMPONENT desktop)
    install(FILES "${packaging}/icons/${application}-symbolic.svg"
            DESTINATION "${icons}/symbolic/apps" COMPONENT desktop)
    # The bus wants the program's whole path, which only the installation knows.
    install(CODE "
        set(program \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/orvo-desktop\")
        configure_file(\"${packaging}/${application}.service.in\"
                       \"${PROJECT_BINARY_DIR}/${application}.service\" @ONLY)"
            COMPONENT desktop)
    install(FILES "${PROJECT_BINARY_DIR}/${application}.service"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/dbus-1/services" COMPONENT desktop)
endif()

orvo_public_headers(public_headers)
foreach(header ${public_headers})
    cmake_path(GET header PARENT_PATH folder)
    install(FILES "${PROJECT_SOURCE_DIR}/src/${header}" DESTINATION "${header_folder}/${folder}"
            COMPONENT development)
endforeach()
install(EXPORT OrvoShareTargets NAMESPACE OrvoShare:: DESTINATION "${cmake_folder}"
        COMPONENT development)
if(ORVO_DESKTOP)
    install(EXPORT OrvoShareQtTargets NAMESPACE OrvoShare:: DESTINATION "${cmake_folder}"
            COMPONENT development)
endif()
write_basic_package_version_file("${PROJECT_BINARY_DIR}/OrvoShareConfigVersion.cmake"
                                 COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_SOURCE_DIR}/cmake/OrvoShareConfig.cmake"
              "${PROJECT_BINARY_DIR}/OrvoShareConfigVersion.cmake"
        DESTINATION "${cmake_folder}" COMPONENT development)

# The way from the pkg-config file to the prefix, so that an installed tree may be moved.
file(RELATIVE_PATH path_to_prefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file("${PROJECT_SOURCE_DIR}/cmake/orvoshare.pc.in" "${PROJECT_BINARY_DIR}/orvoshare.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/orvoshare.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
        COMPONENT development)
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DOCDIR}"
        COMPONENT licence)

include(OrvoPackage)
