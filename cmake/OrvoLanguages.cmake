# The language modules: each lang/<language>.po becomes a file of texts below share/ of the build, where the built
# library looks for it as the installed one does.
find_package(Gettext REQUIRED)
find_program(MSGEN msgen REQUIRED)

set(ORVO_LANGUAGES en de fr ja)
set(po_folder "${PROJECT_SOURCE_DIR}/lang")
set(modules "")
foreach(language ${ORVO_LANGUAGES})
    set(folder "${PROJECT_BINARY_DIR}/share/orvoshare/lang/${language}")
    set(module "${folder}/ORVOSHARELANG.DLL")
    set(texts "${po_folder}/${language}.po")
    set(fill "")
    if(language STREQUAL "en")
        # English holds each text once, as what the others translate.
        set(texts "${PROJECT_BINARY_DIR}/en.po")
        set(fill COMMAND ${MSGEN} --output-file=${texts} ${po_folder}/en.po)
    endif()
    add_custom_command(
        OUTPUT "${module}"
        COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
        ${fill}
        COMMAND ${GETTEXT_MSGFMT_EXECUTABLE} --check-format --check-accelerators=& --output-file=${module} ${texts}
        DEPENDS "${po_folder}/${language}.po"
        VERBATIM)
    list(APPEND modules "${module}")
endforeach()
add_custom_target(orvo_languages ALL DEPENDS ${modules})
