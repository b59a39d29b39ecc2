# qx_proof_bindings(<target> <folder>): compiles the proof schemas of the binding runtime into
# <folder> at build time for <target>, whose sources include their headers as "support/<Name>.h" or
# "binding/support/<Name>.h", beside the hand-written fixtures.
function(qx_proof_bindings target folder)
    foreach(proof TestSchema:testschema GroupsSchema:groups ContentSchema:content)
        string(REPLACE ":" ";" proof ${proof})
        list(GET proof 0 name)
        list(GET proof 1 schema)
        qx_generate_bindings(${target} SCHEMAS ${PROJECT_SOURCE_DIR}/tests/binding/support/${schema}.xsd
            NAMESPACE ${name} PREFIX ${name} OUTPUT_DIRECTORY ${folder}/binding/support)
    endforeach()
    target_include_directories(${target} PRIVATE ${folder} ${folder}/binding)
endfunction()
