# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT

# OpenCV::core, OpenCV::imgproc and OpenCV::dnn. OpenCV's own CMake package comes only with all of
# its modules, and Debian's of that with hundreds of packages that nothing here uses.
include(FindPackageHandleStandardArgs)

find_path(OpenCVModules_INCLUDE_DIR opencv2/core.hpp PATH_SUFFIXES opencv4)
set(OpenCVModules_NEEDED OpenCVModules_INCLUDE_DIR)
foreach(module core imgproc dnn)
    find_library(OpenCVModules_${module} opencv_${module})
    list(APPEND OpenCVModules_NEEDED OpenCVModules_${module})
    if(OpenCVModules_${module} AND OpenCVModules_INCLUDE_DIR AND NOT TARGET OpenCV::${module})
        add_library(OpenCV::${module} UNKNOWN IMPORTED)
        set_target_properties(OpenCV::${module} PROPERTIES
            IMPORTED_LOCATION ${OpenCVModules_${module}}
            INTERFACE_INCLUDE_DIRECTORIES ${OpenCVModules_INCLUDE_DIR})
    endif()
endforeach()
find_package_handle_standard_args(OpenCVModules REQUIRED_VARS ${OpenCVModules_NEEDED})
