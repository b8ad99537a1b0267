# add_forms(TARGET FORM...) makes a header ui_FORM.h of each FORM.ui of the folder forms, for the
# sources of the target and of what links it. The build tool knows each header as the product of its
# form, so one build brings a changed form into the program; with CMAKE_AUTOUIC it takes two.
function(add_forms target)
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/forms")
    file(MAKE_DIRECTORY "${folder}")
    set(headers "")
    foreach(form IN LISTS ARGN)
        set(header "${folder}/ui_${form}.h")
        add_custom_command(OUTPUT "${header}"
            COMMAND ${QT}::uic -o "${header}" "${CMAKE_SOURCE_DIR}/forms/${form}.ui"
            DEPENDS "${CMAKE_SOURCE_DIR}/forms/${form}.ui"
            COMMENT "Making ui_${form}.h"
            VERBATIM)
        list(APPEND headers "${header}")
        # A folder that was built with CMAKE_AUTOUIC has an old header where compilers look first.
        file(REMOVE "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/include/ui_${form}.h")
    endforeach()
    set_source_files_properties(${headers} PROPERTIES SKIP_AUTOGEN ON)
    target_sources(${target} PRIVATE ${headers})
    target_include_directories(${target} PUBLIC "${folder}")
    # For tools that read the sources and compile nothing.
    add_custom_target(${target}_forms DEPENDS ${headers})
    add_dependencies(${target} ${target}_forms)
endfunction()
