# Common to every target of the project: the language, the warnings, the floating-point rules.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_program(QUANDREL_MOLD mold)
if(QUANDREL_MOLD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT QUANDREL_COVERAGE)
    add_link_options(-fuse-ld=mold)
endif()

# Contracted multiply-adds would make results depend on the machine.
add_compile_options(-ffp-contract=off)

if(QUANDREL_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(QUANDREL_SANITIZE_THREADS)
    add_compile_options(-fsanitize=thread)
    add_link_options(-fsanitize=thread)
endif()
if(QUANDREL_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()

set(QUANDREL_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # When optimising, this compiler reports a text inserted before a std::string as an overlap, and
    # one copied into a std::string from precompiled headers as a copy beyond its end.
    list(APPEND QUANDREL_WARNINGS -Wno-restrict -Wno-array-bounds -Wno-stringop-overflow
                                  -Wno-stringop-overread)
    if(QUANDREL_SANITIZE)
        # The sanitizers hide from the compiler that the library's <regex> sets what it reads.
        list(APPEND QUANDREL_WARNINGS -Wno-maybe-uninitialized)
    endif()
endif()

function(quandrel_target target)
    target_compile_options(${target} PRIVATE ${QUANDREL_WARNINGS})
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/src)
endfunction()

# For a target that includes the headers of libqpdf: clang 14 rejects them as C++20.
function(quandrel_uses_qpdf target)
    target_link_libraries(${target} PRIVATE qpdf::libqpdf)
    target_compile_definitions(${target} PRIVATE POINTERHOLDER_TRANSITION=4) # no pointers of its own
    set_target_properties(${target} PROPERTIES CXX_STANDARD 17 DISABLE_PRECOMPILE_HEADERS ON)
endfunction()

# Library headers take most of the compile time, so these are precompiled.
set(QUANDREL_STANDARD_HEADERS <algorithm> <array> <cmath> <cstdint> <functional> <map> <memory>
    <optional> <set> <span> <string> <string_view> <utility> <variant> <vector>)
set(QUANDREL_QT_HEADERS <QColor> <QEvent> <QGuiApplication> <QImage> <QPainter> <QString>)
set(QUANDREL_WIDGET_HEADERS ${QUANDREL_QT_HEADERS} <QAction> <QApplication> <QButtonGroup>
    <QCheckBox> <QComboBox> <QDialog> <QDialogButtonBox> <QGridLayout> <QGroupBox> <QKeyEvent>
    <QLabel> <QLineEdit> <QMainWindow> <QMenuBar> <QMouseEvent> <QPushButton> <QRadioButton>
    <QSlider> <QTabWidget> <QToolBar> <QVBoxLayout>)

# The engine's precompiled headers, shared by all folders that do not use Qt.
function(quandrel_precompile target)
    if(NOT TARGET quandrel_precompiled)
        add_library(quandrel_precompiled STATIC ${PROJECT_SOURCE_DIR}/cmake/precompiled.cpp)
        target_compile_options(quandrel_precompiled PRIVATE ${QUANDREL_WARNINGS})
        target_precompile_headers(quandrel_precompiled PRIVATE ${QUANDREL_STANDARD_HEADERS})
    endif()
    target_precompile_headers(${target} REUSE_FROM quandrel_precompiled)
endfunction()

# A folder of src/ as a library quandrel_<folder>. The arguments after DEPENDS are the folders that
# it may use: the only permitted dependencies. Those after PRECOMPILE are further headers to
# precompile, for a folder above the engine. Sources are found by pattern, so that adding a file to
# a folder needs no change here.
function(quandrel_folder folder)
    cmake_parse_arguments(arg "" "" "DEPENDS;PRECOMPILE" ${ARGN})
    string(REPLACE "/" "_" name ${folder})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
    if(sources)
        add_library(quandrel_${name} STATIC ${sources})
        quandrel_target(quandrel_${name})
        if(arg_PRECOMPILE)
            target_precompile_headers(quandrel_${name} PRIVATE ${QUANDREL_STANDARD_HEADERS}
                                      ${arg_PRECOMPILE})
        else()
            quandrel_precompile(quandrel_${name})
        endif()
        set(visibility PUBLIC)
    else()
        add_library(quandrel_${name} INTERFACE)
        target_include_directories(quandrel_${name} INTERFACE ${PROJECT_SOURCE_DIR}/src)
        set(visibility INTERFACE)
    endif()
    foreach(dependency IN LISTS arg_DEPENDS)
        target_link_libraries(quandrel_${name} ${visibility} quandrel_${dependency})
    endforeach()
endfunction()
