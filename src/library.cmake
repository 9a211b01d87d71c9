# liborvoshare: the module with the libraries that fulfil its contracts, in one shared library.
set(parts
    orvo_text
    orvo_options
    orvo_addressviews
    orvo_addresslist
    orvo_todo
    orvo_shared
    orvo_integration
    orvo_quire
    orvo_lingo
    orvo_odcmn
    orvo_orvoui
    orvo_orvocmn
    orvo_language
    orvo_module
    orvo_resources
    orvo_platform_module
    orvo_platform_text
    orvo_platform_time
    orvo_platform_io
    orvo_platform_settings
    orvo_platform_registry
    orvo_platform_ipc
    orvo_platform_com
    orvo_platform_window
    orvo_platform_desktop)
list(TRANSFORM parts REPLACE "(.+)" "$<TARGET_FILE:\\1>" OUTPUT_VARIABLE archives)

add_library(orvoshare SHARED orvoshare/module/Version.cpp)
add_dependencies(orvoshare ${parts})
set_target_properties(orvoshare PROPERTIES VERSION ${PROJECT_VERSION}
                                           SOVERSION ${PROJECT_VERSION_MAJOR}
                                           LINK_DEPENDS "${archives}")
target_compile_definitions(orvoshare PRIVATE ORVO_VERSION="${PROJECT_VERSION}")
target_compile_features(orvoshare PUBLIC cxx_std_20)
target_include_directories(orvoshare
    PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>
           $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/OrvoShare>)
# All of each archive, as nothing inside the library calls what it is there to export; by file name, so that CMake
# doesn't link the archives a second time for each other's sake.
target_link_options(orvoshare PRIVATE
    "LINKER:--whole-archive" ${archives} "LINKER:--no-whole-archive")
target_link_libraries(orvoshare
    PRIVATE $<BUILD_INTERFACE:orvo_flags> $<BUILD_INTERFACE:ICU::i18n> $<BUILD_INTERFACE:ICU::uc>
            $<BUILD_INTERFACE:SQLite::SQLite3> $<BUILD_INTERFACE:fmt::fmt>
            $<BUILD_INTERFACE:PkgConfig::sdbus>)

# liborvoshareqt: real windows for a program that embeds the library. Its objects ask for nothing but what liborvoshare
# shows, which the linker sees to.
if(ORVO_DESKTOP)
    add_library(orvoshareqt SHARED $<TARGET_OBJECTS:orvo_platform_qt>)
    set_target_properties(orvoshareqt PROPERTIES VERSION ${PROJECT_VERSION}
                                                 SOVERSION ${PROJECT_VERSION_MAJOR})
    if(NOT ORVO_SANITIZE)  # whose runtime is the program's
        target_link_options(orvoshareqt PRIVATE "LINKER:--no-undefined")
    endif()
    target_link_libraries(orvoshareqt
        PUBLIC orvoshare Qt6::Widgets
        PRIVATE $<BUILD_INTERFACE:orvo_flags> $<BUILD_INTERFACE:Qt6::Multimedia>)
endif()
