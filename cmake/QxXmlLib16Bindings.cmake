# qx_generate_bindings(<target> SCHEMAS <schema.xsd>... [NAMESPACE <C++ namespace>] [PREFIX <name>]
#                      [OUTPUT_DIRECTORY <folder>] [OPTIONS <qxxsd option>...])
#
# Compiles the schemas into bindings with qxxsd at build time and adds them to the target, which
# then includes "<name>.h" (PREFIX, by default the first schema's file name without extension). The
# bindings are made again whenever a schema changes, the schemas they include or import included.
# OPTIONS go to qxxsd as they are, for example --map URL=FILE.
function(qx_generate_bindings target)
    cmake_parse_arguments(PARSE_ARGV 1 QX "" "NAMESPACE;PREFIX;OUTPUT_DIRECTORY" "SCHEMAS;OPTIONS")
    if(NOT QX_SCHEMAS)
        message(FATAL_ERROR "qx_generate_bindings(${target}): SCHEMAS names no schema")
    endif()
    set(schemas)
    foreach(schema IN LISTS QX_SCHEMAS)
        get_filename_component(schema "${schema}" ABSOLUTE BASE_DIR "${CMAKE_CURRENT_SOURCE_DIR}")
        list(APPEND schemas "${schema}")
    endforeach()
    list(GET schemas 0 first)
    if(NOT QX_PREFIX)
        get_filename_component(QX_PREFIX "${first}" NAME_WLE)
    endif()
    if(NOT QX_OUTPUT_DIRECTORY)
        set(QX_OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/${target}_bindings")
    endif()
    # One header, the first schema's source, and one source for each further schema.
    set(outputs "${QX_OUTPUT_DIRECTORY}/${QX_PREFIX}.h" "${QX_OUTPUT_DIRECTORY}/${QX_PREFIX}.cpp")
    list(LENGTH schemas count)
    if(count GREATER 1)
        list(SUBLIST schemas 1 -1 others)
        foreach(schema IN LISTS others)
            get_filename_component(stem "${schema}" NAME_WLE)
            list(APPEND outputs "${QX_OUTPUT_DIRECTORY}/${QX_PREFIX}-${stem}.cpp")
        endforeach()
    endif()
    set(arguments -o "${QX_OUTPUT_DIRECTORY}" -p "${QX_PREFIX}" --depfile "${QX_OUTPUT_DIRECTORY}/${QX_PREFIX}.d")
    if(QX_NAMESPACE)
        list(APPEND arguments -n "${QX_NAMESPACE}")
    endif()
    set(depfile)
    if(NOT CMAKE_VERSION VERSION_LESS 3.20)
        set(depfile DEPFILE "${QX_OUTPUT_DIRECTORY}/${QX_PREFIX}.d")
    endif()
    add_custom_command(OUTPUT ${outputs}
        COMMAND QxXmlLib16::qxxsd ${arguments} ${QX_OPTIONS} ${schemas}
        DEPENDS ${schemas} QxXmlLib16::qxxsd
        ${depfile}
        COMMENT "qxxsd: bindings of ${QX_SCHEMAS}"
        VERBATIM)
    target_sources(${target} PRIVATE ${outputs})
    target_include_directories(${target} PUBLIC "${QX_OUTPUT_DIRECTORY}")
    target_link_libraries(${target} PUBLIC QxXmlLib16::QxXmlLib16)
endfunction()
