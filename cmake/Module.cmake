# SPDX-License-Identifier: GPL-3.0-or-later
#
# add_module(NAME
#     SOURCES a.cpp a.h ...         listed one by one
#     USES targets                  appear in our headers
#     PRIVATE_USES targets          nobody else may see these
#     QML_URI Trackwise.Name        makes it a QML module too
#     QML_FILES A.qml ...  QML_SINGLETONS B.qml ...  QML_IMPORTS QtQuick ...  RESOURCES x.svg ...)
#
# add_test_program(tst_Name SOURCES ... USES ... [LABELS ...] [QML])
#
# Every source includes with the path from src/ ("song/MediaItem.h").

add_library(trackwise_flags INTERFACE)
target_include_directories(trackwise_flags INTERFACE "${CMAKE_SOURCE_DIR}/src")
target_compile_definitions(trackwise_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
include(Sanitizers)

set(TRACKWISE_WARNINGS -Wall -Wextra -Wno-missing-field-initializers -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference
    -Wduplicated-cond -Wlogical-op -Wcast-qual -Wformat=2 -Wimplicit-fallthrough)
if(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
    # What the program jumps through cannot be overwritten by what it reads.
    target_link_options(trackwise_flags INTERFACE LINKER:-z,relro,-z,now)
    target_compile_options(trackwise_flags INTERFACE -fstack-protector-strong)
    if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE") # which packagers' own flags may set higher
        target_compile_definitions(trackwise_flags INTERFACE
            $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:_FORTIFY_SOURCE=2>) # it needs an optimizer
    endif()
    # Where it optimises, GCC 12 takes every QPointer that was just looked at for one that may be null.
    list(REMOVE_ITEM TRACKWISE_WARNINGS -Wnull-dereference)
endif()
if(TRACKWISE_WARNINGS_AS_ERRORS)
    list(APPEND TRACKWISE_WARNINGS -Werror)
endif()

# Strict flags go on our sources only: the C++ that Qt generates does not pass them.
function(trackwise_strict_sources)
    foreach(source IN LISTS ARGN)
        if(source MATCHES "\\.cpp$")
            set_property(SOURCE "${source}" APPEND PROPERTY COMPILE_OPTIONS ${TRACKWISE_WARNINGS})
        endif()
    endforeach()
endfunction()

function(add_module name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "QML_URI"
        "SOURCES;USES;PRIVATE_USES;QML_FILES;QML_SINGLETONS;QML_IMPORTS;RESOURCES")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "add_module(${name}): unknown arguments ${arg_UNPARSED_ARGUMENTS}")
    endif()
    set(target trackwise_${name})
    if(arg_QML_URI)
        set_source_files_properties(${arg_QML_SINGLETONS} PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
        string(REPLACE "." "/" qml_folder "${arg_QML_URI}")
        qt_add_qml_module(${target} STATIC
            URI ${arg_QML_URI}
            VERSION 1.0
            RESOURCE_PREFIX /qt/qml
            OUTPUT_DIRECTORY "${QT_QML_OUTPUT_DIRECTORY}/${qml_folder}"
            IMPORTS ${arg_QML_IMPORTS}
            SOURCES ${arg_SOURCES}
            QML_FILES ${arg_QML_FILES} ${arg_QML_SINGLETONS}
            RESOURCES ${arg_RESOURCES})
        # The generated type registration includes headers by their bare name.
        target_include_directories(${target} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
        set(link_target ${target}plugin)
    else()
        add_library(${target} STATIC ${arg_SOURCES})
        set(link_target ${target})
    endif()
    target_link_libraries(${target} PUBLIC trackwise_flags ${arg_USES} PRIVATE ${arg_PRIVATE_USES})
    trackwise_strict_sources(${arg_SOURCES})
    add_library(Module::${name} ALIAS ${target})
    # What an executable links to get the room and, where it has one, its QML module.
    if(arg_QML_URI)
        add_library(trackwise_${name}_linked INTERFACE)
        target_link_libraries(trackwise_${name}_linked INTERFACE ${target} ${target}plugin)
        add_library(Linked::${name} ALIAS trackwise_${name}_linked)
    endif()
endfunction()

function(add_test_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;USES;LABELS;ENVIRONMENT;COMMAND_PREFIX")
    qt_add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE trackwise_flags Qt6::Test ${arg_USES})
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
    trackwise_strict_sources(${arg_SOURCES})
    add_test(NAME ${name} COMMAND ${arg_COMMAND_PREFIX} $<TARGET_FILE:${name}>)
    set(environment QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 TZ=UTC ${TRACKWISE_TEST_ENVIRONMENT})
    if("${arg_USES}" MATCHES "Linked::")
        list(APPEND environment ${TRACKWISE_DRAWING_TEST_ENVIRONMENT})
    endif()
    set_tests_properties(${name} PROPERTIES
        LABELS "${arg_LABELS}"
        TIMEOUT ${TRACKWISE_TEST_SECONDS}
        ENVIRONMENT "${environment};${arg_ENVIRONMENT}")
endfunction()
