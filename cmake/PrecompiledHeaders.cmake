# precompile_qt(TARGET HEADER...) compiles the headers once for the target.
# reuse_precompiled(TARGET OWNER) lets the target use those of another one.
# Both do nothing unless TRACKING_PRECOMPILED_HEADERS is on: a build without them shows a missing
# include.
function(precompile_qt target)
    if(TRACKING_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} PRIVATE ${ARGN})
        target_compile_options(${target} PRIVATE
            $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    endif()
endfunction()

function(reuse_precompiled target owner)
    if(TRACKING_PRECOMPILED_HEADERS)
        target_precompile_headers(${target} REUSE_FROM ${owner})
        target_compile_options(${target} PRIVATE
            $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    endif()
endfunction()
