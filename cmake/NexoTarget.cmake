# Flags every target of this project is built with.
#
# Results must be the same on every machine: no contraction of multiply-add, no fast-math, and the
# baseline instruction set; code that profits from newer instructions selects it at run time.
add_library(nexo_flags INTERFACE)
target_compile_options(nexo_flags INTERFACE
    -ffp-contract=off -Wall -Wextra -Wconversion -Wshadow
    $<$<CXX_COMPILER_ID:Clang>:-fconstexpr-steps=100000000>  # the character tables are computed by the compiler
    $<$<BOOL:${NEXO_WERROR}>:-Werror>)
set(NEXO_SANITIZE_FLAGS)
if(NEXO_SANITIZE)
    set(NEXO_SANITIZE_FLAGS -fsanitize=${NEXO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(nexo_flags INTERFACE ${NEXO_SANITIZE_FLAGS})
    target_link_options(nexo_flags INTERFACE -fsanitize=${NEXO_SANITIZE})
endif()
if(NEXO_FUZZ)
    target_compile_options(nexo_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Subfolders of one kind of test program (tests/, bench/, fuzz/) that hold sources.
function(nexo_subfolders out)
    file(GLOB entries CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR}/*)
    set(found)
    foreach(entry IN LISTS entries)
        if(IS_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/${entry})
            list(APPEND found ${entry})
        endif()
    endforeach()
    set(${out} ${found} PARENT_SCOPE)
endfunction()
