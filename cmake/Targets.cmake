# What every target of the project shares: warnings as errors, the include root and the sanitizers.
add_library(quillshift_options INTERFACE)
target_include_directories(quillshift_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(quillshift_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# The same bytes wherever it is built.
target_compile_options(quillshift_options INTERFACE
    $<$<CONFIG:RelWithDebInfo>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>)
# The compiler's debug information over a precompiled header differs from run to run. It is stripped, but a build's id
# would be a hash of it.
target_link_options(quillshift_options INTERFACE $<$<CONFIG:RelWithDebInfo>:-Wl,--build-id=none>)
if(QUILLSHIFT_SANITIZE)
    target_compile_options(quillshift_options INTERFACE
        -fsanitize=${QUILLSHIFT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(quillshift_options INTERFACE -fsanitize=${QUILLSHIFT_SANITIZE})
endif()
if(QUILLSHIFT_FUZZ)
    target_compile_options(quillshift_options INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
    target_link_options(quillshift_options INTERFACE -fsanitize=address,undefined)
endif()

# A library of the logic: standard library and our own interfaces only. It is not linked with Qt, so that a
# wrong include does not compile. Arguments: sources, then LINK and the libraries it stands on.
function(quillshift_logic name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINK")
    add_library(${name} STATIC ${arg_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PUBLIC quillshift_options ${arg_LINK})
endfunction()

# A library of windows, over Qt Widgets. Arguments as above. All of them use the headers that the first one of them has
# precompiled.
function(quillshift_windows name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINK")
    add_library(${name} STATIC ${arg_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PUBLIC quillshift_options Qt6::Widgets ${arg_LINK})
    get_property(first GLOBAL PROPERTY quillshift_precompiled)
    if(first)
        target_precompile_headers(${name} REUSE_FROM ${first})
    else()
        target_precompile_headers(${name} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/QtPrecompiled.h)
        set_property(GLOBAL PROPERTY quillshift_precompiled ${name})
    endif()
endfunction()
