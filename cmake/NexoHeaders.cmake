# nexo_public_headers(OUT HEADERS...): those of the headers that programs may include.
#
# Not public are the folders named `linux` and headers that hold the line "// Private to the library."
function(nexo_public_headers out)
    set(public)
    foreach(header IN LISTS ARGN)
        file(STRINGS ${header} mark LIMIT_COUNT 1 REGEX "^// Private to the library\\.")
        if(NOT mark AND NOT header MATCHES "/linux/")
            list(APPEND public ${header})
        endif()
    endforeach()
    set(${out} ${public} PARENT_SCOPE)
endfunction()

# nexo_umbrella(OUTPUT HEADERS...): writes the header that includes them all, so that none is ever forgotten.
function(nexo_umbrella output)
    set(includes)
    foreach(header IN LISTS ARGN)
        file(RELATIVE_PATH name ${PROJECT_SOURCE_DIR} ${header})
        list(APPEND includes "#include \"${name}\"")
    endforeach()
    list(SORT includes)
    list(JOIN includes "\n" includes)
    file(CONFIGURE OUTPUT ${output} @ONLY CONTENT "#ifndef NEXO_NEXO_H
#define NEXO_NEXO_H

// The whole interface of the library.

${includes}

#endif
")
endfunction()
