# find_package(OrvoShare [COMPONENTS qt]): OrvoShare::orvoshare, and with the component OrvoShare::orvoshareqt.
# SPDX-License-Identifier: MIT
include("${CMAKE_CURRENT_LIST_DIR}/OrvoShareTargets.cmake")
if("qt" IN_LIST OrvoShare_FIND_COMPONENTS)
    include(CMakeFindDependencyMacro)
    find_dependency(Qt6 6.4 COMPONENTS Widgets)
    include("${CMAKE_CURRENT_LIST_DIR}/OrvoShareQtTargets.cmake" OPTIONAL RESULT_VARIABLE found)
    set(OrvoShare_qt_FOUND "${found}")
    if(OrvoShare_FIND_REQUIRED_qt AND NOT found)
        set(OrvoShare_FOUND FALSE)
        set(OrvoShare_NOT_FOUND_MESSAGE "This OrvoShare was built without Qt.")
    endif()
endif()
