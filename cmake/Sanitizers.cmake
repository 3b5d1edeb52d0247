# SPDX-License-Identifier: GPL-3.0-or-later
#
# TRACKWISE_SANITIZERS for everything that links trackwise_flags, and what the sanitizers are to be told when a test
# runs: TRACKWISE_TEST_ENVIRONMENT, and for tests that draw TRACKWISE_DRAWING_TEST_ENVIRONMENT too. The libraries come
# from the system, without any sanitizer in them.

set(TRACKWISE_TEST_ENVIRONMENT "")
set(TRACKWISE_DRAWING_TEST_ENVIRONMENT "")
set(TRACKWISE_TEST_SECONDS 120)
if(NOT TRACKWISE_SANITIZERS)
    return()
endif()

target_compile_options(trackwise_flags INTERFACE
    "-fsanitize=${TRACKWISE_SANITIZERS}" -fno-omit-frame-pointer -fno-sanitize-recover=all)
target_link_options(trackwise_flags INTERFACE "-fsanitize=${TRACKWISE_SANITIZERS}")

set(TRACKWISE_TEST_SECONDS 300)
set(sanitizer_folder "${CMAKE_SOURCE_DIR}/tools/sanitizers")
if(TRACKWISE_SANITIZERS MATCHES "address")
    list(APPEND TRACKWISE_TEST_ENVIRONMENT
        "LSAN_OPTIONS=suppressions=${sanitizer_folder}/leaks-of-libraries.supp:print_suppressions=0")
    # Qt keeps no frame pointers: the fast way to walk the stack loses itself in it, and the file that says which leaks
    # are Qt's goes by names on the stack. The slow way takes several times as long.
    set(TRACKWISE_DRAWING_TEST_ENVIRONMENT "ASAN_OPTIONS=fast_unwind_on_malloc=0:malloc_context_size=25")
endif()
if(TRACKWISE_SANITIZERS MATCHES "undefined")
    list(APPEND TRACKWISE_TEST_ENVIRONMENT "UBSAN_OPTIONS=print_stacktrace=1")
endif()
if(TRACKWISE_SANITIZERS MATCHES "thread")
    # What goes from thread to thread inside Qt; see QtHandOvers.cpp.
    add_library(trackwise_qt_hand_overs STATIC "${sanitizer_folder}/QtHandOvers.cpp")
    target_compile_options(trackwise_qt_hand_overs PRIVATE -fsanitize=thread)
    target_link_libraries(trackwise_qt_hand_overs PUBLIC Qt6::Core)
    foreach(function IN ITEMS
            _ZN11QThreadPool5startEP9QRunnablei
            _ZN11QThreadPool5startESt8functionIFvvEEi
            _ZN11QThreadPool11waitForDoneEi
            _ZN11QThreadPoolD1Ev
            _ZN10QSemaphore7acquireEi
            _ZN10QSemaphore7releaseEi
            _ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv)
        target_link_options(trackwise_flags INTERFACE "LINKER:--wrap=${function}")
    endforeach()
    target_link_options(trackwise_flags INTERFACE "LINKER:--undefined=__wrap__ZN11QThreadPool5startEP9QRunnablei")
    target_link_libraries(trackwise_flags INTERFACE trackwise_qt_hand_overs)
endif()
