# add_precompiled(NAME LIBRARIES HEADER...) compiles headers of those Qt libraries once, and
# use_precompiled(TARGET NAME) makes a target use them. Both do nothing unless
# TRACKING_PRECOMPILED_HEADERS is on, because only a build without precompiled headers shows a
# missing include.
function(add_precompiled name libraries)
    if(TRACKING_PRECOMPILED_HEADERS)
        set(source "${CMAKE_BINARY_DIR}/${name}.cpp")
        file(CONFIGURE OUTPUT "${source}" CONTENT "// Only its precompiled headers are used.\n")
        add_library(${name} OBJECT "${source}")
        set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTORCC OFF)
        target_link_libraries(${name} PRIVATE project_options ${libraries})
        target_precompile_headers(${name} PRIVATE ${ARGN})
        target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    endif()
endfunction()

function(use_precompiled target name)
    if(TRACKING_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} REUSE_FROM ${name})
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    endif()
endfunction()
