option(SONGBIN_TESTS "Build the tests" OFF)
option(SONGBIN_BENCHMARKS "Offer the target benchmarks" OFF)
option(SONGBIN_SANITIZE "Address and undefined-behaviour sanitizers" OFF)
option(SONGBIN_FUZZ "Offer the target fuzzers (clang only)" OFF)

add_library(songbin_options INTERFACE)
target_compile_options(songbin_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Werror)
target_compile_definitions(songbin_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(songbin_options INTERFACE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR})

# For what is shipped. The sanitizers look at the same places and would see the library's checks first.
add_library(songbin_hardening INTERFACE)
if(NOT SONGBIN_SANITIZE AND NOT SONGBIN_FUZZ)
    target_compile_options(songbin_hardening INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
        -fstack-protector-strong)
endif()
target_link_options(songbin_hardening INTERFACE -Wl,-z,relro -Wl,-z,now)
if(SONGBIN_SANITIZE)
    target_compile_options(songbin_options INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
        -fno-sanitize-recover=undefined)
    target_link_options(songbin_options INTERFACE -fsanitize=address,undefined)
endif()
if(SONGBIN_FUZZ)
    target_compile_options(songbin_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
        -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(songbin_options INTERFACE -fsanitize=address,undefined)
endif()

# For the programs that load GStreamer: what the leak sanitizer would wrongly tell of.
function(songbin_keeps_glib_tables program)
    if(SONGBIN_SANITIZE)
        target_sources(${program} PRIVATE ${CMAKE_SOURCE_DIR}/tests/support/sanitizer.cpp)
    endif()
endfunction()
