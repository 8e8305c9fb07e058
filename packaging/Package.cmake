# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT

# "cpack --preset release" makes the package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tovarin)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Tovarin developers <developers@tovarin.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "keep track of what you pay for")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/TidyPackage.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Tovarin keeps track of subscriptions and one-time purchases. It shows what
they cost a month and a year and what is due within a week, in Chinese and in
English, and reminds you before each renewal.

Entries are typed in, ticked in a catalog of common services, or read from
bills: screenshots, photographs and PDF files. Everything stays on the
machine; the text of bills is recognised there, too, without a network.")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_BINARY_DIR}/debian/conffiles)

# The libraries are read from the programs; what these open by themselves is the list of what a
# developer needs to run them. A session without a Wayland compositor, or one that is without
# reminders, can do without the recommended ones.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(runtime_packages ${PROJECT_SOURCE_DIR}/tools/packages/runtime.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${runtime_packages})
file(STRINGS ${runtime_packages} depends REGEX "^[a-z]")
# A program is linked with it.
list(REMOVE_ITEM depends libqt6svg6)
list(REMOVE_ITEM depends qt6-wayland)
list(JOIN depends ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "default-dbus-session-bus | dbus-session-bus, notification-daemon, qt6-wayland")

include(CPack)
