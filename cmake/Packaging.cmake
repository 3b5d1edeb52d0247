# SPDX-License-Identifier: GPL-3.0-or-later
# The package for Debian, which "cpack" makes of what is installed; see docs/packaging.md.
install(FILES LICENSE DESTINATION "${CMAKE_INSTALL_DATADIR}/licenses/trackwise" COMPONENT licence)
configure_file(resources/debian/copyright.in share/copyright @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/share/copyright" DESTINATION "${CMAKE_INSTALL_DOCDIR}"
    COMPONENT debian EXCLUDE_FROM_ALL)

# The text of the licence is on every Debian: "copyright" says where.
set(CPACK_INSTALL_CMAKE_PROJECTS
    "${CMAKE_BINARY_DIR};trackwise;${CMAKE_INSTALL_DEFAULT_COMPONENT_NAME};/"
    "${CMAKE_BINARY_DIR};trackwise;debian;/")
set(CPACK_GENERATOR DEB)
# What is made while it is installed, such as the service file, then knows its place.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_PACKAGE_NAME trackwise)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "${TRACKWISE_DEVELOPER_NAME} <${TRACKWISE_SUPPORT_ADDRESS}>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "everything that a music library knows about one song")
set(CPACK_PACKAGE_DESCRIPTION
"Trackwise shows one song at a time: title, artist and album, dates and
counts, rating, tempo, comments, lyrics and artwork, each value ready to be
copied. The song is picked from the music folder, dropped as a link, or taken
from whatever player on the system plays now.
.
It runs in windows of any size, from phones to desktops, and on the command
line. A few short pieces to look around with are part of the package.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${TRACKWISE_WEB_SITE}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# Libraries are found by themselves. What is loaded while the program runs is not.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(loaded
    qml6-module-qtquick qml6-module-qtquick-window qml6-module-qtquick-templates qml6-module-qtqml
    qml6-module-qtquick-controls qml6-module-qtquick-layouts qml6-module-qtquick-dialogs
    qml6-module-qt-labs-folderlistmodel qml6-module-qt-labs-platform qml6-module-qtqml-models
    qml6-module-qtqml-workerscript qt6-qpa-plugins)
list(JOIN loaded ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
# Without these it runs, but not everywhere, or not as well.
set(recommended
    qt6-wayland qt6-image-formats-plugins fonts-inter shared-mime-info xdg-desktop-portal xdg-utils
    "default-dbus-session-bus | dbus-session-bus")
list(JOIN recommended ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS feedbackd)
include(CPack)
