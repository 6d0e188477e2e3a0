# qvl_warnings(target): the warnings that the project is clean under. What Qt has deprecated up to 6.8
# does not compile.
function(qvl_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<BOOL:${QVL_WERROR}>:-Werror>)
  target_compile_definitions(${target} PRIVATE QT_DISABLE_DEPRECATED_UP_TO=0x060800)
endfunction()
