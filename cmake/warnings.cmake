# Warnings are errors, everywhere; sanitizers where asked for.
function(yld_sanitize target)
    if(YLD_SANITIZE)
        # Little optimisation and the line numbers alone: with the checks between the statements more costs nearly
        # twice the time to build, and finds nothing more.
        target_compile_options(${target} PRIVATE
            -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1 -g1)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
endfunction()

function(yld_link_strict target)
    yld_sanitize(${target})
    target_link_options(${target} PRIVATE -Wl,--no-undefined)
endfunction()

function(yld_strict target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Werror)
    yld_sanitize(${target})
endfunction()
