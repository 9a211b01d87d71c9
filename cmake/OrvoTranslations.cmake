# The desktop program's texts in other languages: each lang/desktop/<language>.po becomes a message file below
# share/locale of the build, where the built program looks for it as the installed one does.
find_package(Gettext REQUIRED)

set(message_files "")
foreach(language de fr ja)
    set(folder "${PROJECT_BINARY_DIR}/share/locale/${language}/LC_MESSAGES")
    set(texts "${PROJECT_SOURCE_DIR}/lang/desktop/${language}.po")
    set(messages "${folder}/orvo-desktop.mo")
    add_custom_command(
        OUTPUT "${messages}"
        COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
        COMMAND ${GETTEXT_MSGFMT_EXECUTABLE} --check --check-accelerators=& --output-file=${messages} ${texts}
        DEPENDS "${texts}"
        VERBATIM)
    list(APPEND message_files "${messages}")
endforeach()
add_custom_target(orvo_translations ALL DEPENDS ${message_files})
