# The user's guide with its pictures: as share/orvo-desktop of the build, where the built program looks for it as the
# installed one does. A guide in another language is docs/guide.<language>.md.
file(GLOB guides CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}/docs"
     "${PROJECT_SOURCE_DIR}/docs/guide*.md" "${PROJECT_SOURCE_DIR}/docs/pictures/*.png")
set(guide_files "")
foreach(name ${guides})
    set(file "${PROJECT_BINARY_DIR}/share/orvo-desktop/${name}")
    cmake_path(GET file PARENT_PATH folder)
    add_custom_command(
        OUTPUT "${file}"
        COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
        COMMAND ${CMAKE_COMMAND} -E copy "${PROJECT_SOURCE_DIR}/docs/${name}" ${file}
        DEPENDS "${PROJECT_SOURCE_DIR}/docs/${name}"
        VERBATIM)
    list(APPEND guide_files "${file}")
endforeach()
add_custom_target(orvo_guide ALL DEPENDS ${guide_files})
