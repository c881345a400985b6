# Settings that every target of the project shares, and small helpers to declare libraries, programs and tests.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
# Installed programs and libraries find each other wherever the tree is put.
set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

# Where modules are, from where the libraries are. Those of another series of versions may be installed beside them.
set(MOVARA_MODULE_FOLDER movara/${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})

find_program(MOVARA_CCACHE ccache)
if(MOVARA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${MOVARA_CCACHE}")
endif()

if(CMAKE_CXX_CLANG_TIDY)
    # Generated sources include sources; one check that never applies stands for none at all.
    file(WRITE "${PROJECT_BINARY_DIR}/.clang-tidy" "Checks: '-*,objc-super-self'\n")
endif()

add_library(MovaraSettings INTERFACE)
target_compile_definitions(MovaraSettings INTERFACE
    QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_USE_QSTRINGBUILDER QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(MovaraSettings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wcast-qual
    -Wconversion -Wsign-conversion -Wformat=2 -Wextra-semi -Wimplicit-fallthrough
    -Wzero-as-null-pointer-constant
    $<$<CXX_COMPILER_ID:GNU>:-Wsuggest-override -Wduplicated-cond -Wlogical-op>
    $<$<BOOL:${MOVARA_WARNINGS_AS_ERRORS}>:-Werror>)
if(MOVARA_SANITIZE)
    target_compile_options(MovaraSettings INTERFACE
        -fsanitize=${MOVARA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(MovaraSettings INTERFACE -fsanitize=${MOVARA_SANITIZE})
    target_link_options(MovaraSettings INTERFACE -Wl,--as-needed)
else()
    target_link_options(MovaraSettings INTERFACE -Wl,--no-undefined,--as-needed)
endif()

# movara_add_library(NAME EXPORT_MACRO_PREFIX FOLDER)
# A shared library of the project. Its folders add sources and public headers with movara_add_sources().
function(movara_add_library name macro folder)
    include(GenerateExportHeader)
    add_library(${name} SHARED)
    add_library(Movara::${name} ALIAS ${name})
    set_target_properties(${name} PROPERTIES
        AUTOMOC ON
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
        VERIFY_INTERFACE_HEADER_SETS ON)
    generate_export_header(${name}
        BASE_NAME ${macro}
        EXPORT_FILE_NAME "${PROJECT_BINARY_DIR}/generated/${folder}/${name}Export.h")
    target_sources(${name} PUBLIC
        FILE_SET generated TYPE HEADERS
        BASE_DIRS "${PROJECT_BINARY_DIR}/generated"
        FILES "${PROJECT_BINARY_DIR}/generated/${folder}/${name}Export.h")
    target_compile_features(${name} PUBLIC cxx_std_20)
    target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:MovaraSettings>)
endfunction()

# movara_add_sources(TARGET HEADERS a.h ... SOURCES a.cpp ...)
# Adds the calling folder's public headers and its sources (private headers among them) to a library.
function(movara_add_sources target)
    cmake_parse_arguments(arg "" "" "HEADERS;SOURCES" ${ARGN})
    list(TRANSFORM arg_HEADERS PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    list(TRANSFORM arg_SOURCES PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    target_sources(${target}
        PRIVATE ${arg_SOURCES} ${arg_HEADERS}
        PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${arg_HEADERS})
endfunction()

# movara_add_module(NAME COMPONENT ... SOURCES ... LIBRARIES ...)
# A part that is loaded when it is first needed, see platform/util/McModule.h. COMPONENT is the package that holds it.
# Who loads it must depend on it: add_dependencies().
function(movara_add_module name)
    cmake_parse_arguments(arg "" "COMPONENT" "SOURCES;LIBRARIES" ${ARGN})
    add_library(${name} MODULE ${arg_SOURCES})
    set_target_properties(${name} PROPERTIES
        LIBRARY_OUTPUT_DIRECTORY "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}/${MOVARA_MODULE_FOLDER}"
        INSTALL_RPATH "$ORIGIN/../..")
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}" "${PROJECT_BINARY_DIR}/generated")
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} MovaraSettings)
    install(TARGETS ${name}
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}/${MOVARA_MODULE_FOLDER}" COMPONENT ${arg_COMPONENT})
endfunction()

# How the sanitizers run in tests: what libraries that are not instrumented bring is suppressed, each with its reason.
set(MOVARA_SANITIZER_OPTIONS "")
if(MOVARA_SANITIZE)
    set(MOVARA_SANITIZER_OPTIONS
        "ASAN_OPTIONS=detect_stack_use_after_return=1:check_initialization_order=1"
        "UBSAN_OPTIONS=print_stacktrace=1"
        "TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/tsan.supp:history_size=7:halt_on_error=1:second_deadlock_stack=1:die_after_fork=0")
endif()

# movara_add_test(NAME SOURCES ... LIBRARIES ... [LABELS ...] [ENVIRONMENT ...] [LAUNCHER ...])
# A Qt Test program run by ctest on the offscreen platform. NAME is the file and test name, e.g. tst_McHandle.
# LAUNCHER is a program that gets the test program's path and runs it in surroundings of its own; its exit code 77
# says that these cannot be had here.
function(movara_add_test name)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES;LABELS;ENVIRONMENT;LAUNCHER" ${ARGN})
    if(NOT arg_SOURCES)
        set(arg_SOURCES ${name}.cpp)
    endif()
    add_executable(${name} ${arg_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} MovaraSettings Qt6::Test)
    add_test(NAME ${name} COMMAND ${arg_LAUNCHER} $<TARGET_FILE:${name}>)
    set_tests_properties(${name} PROPERTIES
        TIMEOUT 120
        SKIP_RETURN_CODE 77
        LABELS "${arg_LABELS}"
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_LOGGING_RULES=qt.qpa.*=false;${MOVARA_SANITIZER_OPTIONS};${arg_ENVIRONMENT}")
endfunction()
