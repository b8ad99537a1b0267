# add_forms(TARGET FORM...) generates a header ui_FORM.h from each FORM.ui in the folder forms, for
# the sources of the target and of every target that links it. Each header depends on its form, so
# that a single build brings a changed form into the program; with CMAKE_AUTOUIC this takes two
# builds.
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
        # A build folder from CMAKE_AUTOUIC has an old header in the place that compilers search
        # first.
        file(REMOVE "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/include/ui_${form}.h")
    endforeach()
    set_source_files_properties(${headers} PROPERTIES SKIP_AUTOGEN ON)
    target_sources(${target} PRIVATE ${headers})
    target_include_directories(${target} PUBLIC "${folder}")
    # For tools that read the sources without compiling them.
    add_custom_target(${target}_forms DEPENDS ${headers})
    add_dependencies(${target} ${target}_forms)
endfunction()
