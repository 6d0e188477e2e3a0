# qvl_warnings(target): the warnings that the project is clean under.
function(qvl_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<BOOL:${QVL_WERROR}>:-Werror>)
endfunction()
