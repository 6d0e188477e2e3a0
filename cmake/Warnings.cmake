# qvl_warnings(target): enables the warnings that the project is clean under, and disables most of what Qt has
# deprecated up to 6.8. The compiler warns of the rest.
function(qvl_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<BOOL:${QVL_WERROR}>:-Werror>)
  target_compile_definitions(${target} PRIVATE QT_DISABLE_DEPRECATED_UP_TO=0x060800)
endfunction()
