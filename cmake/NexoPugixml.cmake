# The wide-character build of pugixml, from the source of Debian's package.
#
# Its namespace is renamed to `pugi_wide`, with `pugi` as an alias: most of its symbols would otherwise
# collide with the 8-bit build that another library of the same process may load. The headers stand in
# nexo/pugixml/, the code is part of our shared object, and the target `Nexo::pugixml` adds the folder
# to the include path for programs that write #include <pugixml.hpp>.
set(NEXO_PUGIXML_SOURCE ${PROJECT_SOURCE_DIR}/build/deps/pugixml CACHE PATH
    "Folder with pugixml.hpp, pugixml.cpp and pugiconfig.hpp; fetched when missing")
set(pugixml_dir ${CMAKE_BINARY_DIR}/include/nexo/pugixml)

if(NOT EXISTS ${NEXO_PUGIXML_SOURCE}/pugixml.cpp)
    message(STATUS "Fetching the source of pugixml")
    execute_process(COMMAND ${PROJECT_SOURCE_DIR}/scripts/fetch-pugixml ${NEXO_PUGIXML_SOURCE}
                    COMMAND_ERROR_IS_FATAL ANY)
endif()

set(pugixml_config "#define PUGIXML_WCHAR_MODE
#define PUGIXML_API __attribute__((visibility(\"default\")))
")
foreach(name pugiconfig.hpp pugixml.hpp pugixml.cpp)
    file(READ ${NEXO_PUGIXML_SOURCE}/${name} text)
    string(REGEX REPLACE "namespace pugi([^a-zA-Z_])" "namespace pugi_wide\\1" text "${text}")
    if(name STREQUAL "pugiconfig.hpp")
        string(REPLACE "#define HEADER_PUGICONFIG_HPP\n" "#define HEADER_PUGICONFIG_HPP\n\n${pugixml_config}" text "${text}")
    elseif(name STREQUAL "pugixml.hpp")
        string(REPLACE "\n// The PugiXML namespace\nnamespace pugi_wide\n"
               "\n// The usual name of the namespace\nnamespace pugi_wide {}\nnamespace pugi = pugi_wide;\n\nnamespace pugi_wide\n"
               text "${text}")
    endif()
    file(CONFIGURE OUTPUT ${pugixml_dir}/${name} CONTENT "${text}" @ONLY)
endforeach()

add_library(nexo_pugixml_objects OBJECT ${pugixml_dir}/pugixml.cpp)
set_target_properties(nexo_pugixml_objects PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
target_compile_options(nexo_pugixml_objects PRIVATE ${NEXO_SANITIZE_FLAGS})

add_library(nexo_pugixml INTERFACE)
add_library(Nexo::pugixml ALIAS nexo_pugixml)
set_target_properties(nexo_pugixml PROPERTIES EXPORT_NAME pugixml)
target_include_directories(nexo_pugixml SYSTEM INTERFACE
    $<BUILD_INTERFACE:${pugixml_dir}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/nexo/pugixml>)
install(TARGETS nexo_pugixml EXPORT NexoTargets)
install(FILES ${pugixml_dir}/pugiconfig.hpp ${pugixml_dir}/pugixml.hpp ${NEXO_PUGIXML_SOURCE}/LICENSE.md
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/nexo/pugixml)
