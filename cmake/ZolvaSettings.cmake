# What every target shares: the language, the warnings, and the switches of the presets.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(THREADS_PREFER_PTHREAD_FLAG ON)
find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)

set(ZOLVA_SANITIZE "" CACHE STRING "Sanitizers, as the compiler's -fsanitize takes them")

add_library(zolva_settings INTERFACE)
target_compile_options(zolva_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-qual
    -Wformat=2 -Woverloaded-virtual -Wno-missing-field-initializers)
# A warning stops those who work on it, and nobody who only builds it.
option(ZOLVA_STRICT "Take warnings for errors" OFF)
if(ZOLVA_STRICT)
    target_compile_options(zolva_settings INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees overlaps in joined strings where there are none (its bug 105651).
    target_compile_options(zolva_settings INTERFACE -Wno-restrict)
endif()
target_include_directories(zolva_settings INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_link_libraries(zolva_settings INTERFACE Threads::Threads)

if(ZOLVA_SANITIZE)
    target_compile_options(zolva_settings INTERFACE
        "-fsanitize=${ZOLVA_SANITIZE}" -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(zolva_settings INTERFACE "-fsanitize=${ZOLVA_SANITIZE}")
endif()

find_program(ZOLVA_CCACHE ccache)
if(ZOLVA_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${ZOLVA_CCACHE}")
endif()
