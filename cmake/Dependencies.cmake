# SPDX-License-Identifier: GPL-3.0-or-later
find_package(Qt6 6.4 REQUIRED COMPONENTS
    Core Gui DBus Network Qml Quick Multimedia Svg LinguistTools ShaderTools)
if(BUILD_TESTING)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Test QuickTest)
endif()
find_package(ICU 70 REQUIRED COMPONENTS uc i18n)
find_package(SQLite3 3.38 REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(TagLib REQUIRED IMPORTED_TARGET taglib>=1.12)
pkg_check_modules(AvFormat REQUIRED IMPORTED_TARGET libavformat libavcodec libavutil)
pkg_check_modules(AvUtil REQUIRED IMPORTED_TARGET libavutil)
pkg_check_modules(XxHash REQUIRED IMPORTED_TARGET libxxhash)
pkg_check_modules(Pulse REQUIRED IMPORTED_TARGET libpulse)
