# qvl_counted(target pattern): adds TARGET_counted, the sources of the target that match the pattern, built
# again with a call at every basic block. tests/limits/steps.cpp counts the calls. Not sanitized, because the
# same input shall take the same number of steps.
function(qvl_counted target pattern)
  get_target_property(sources ${target} SOURCES)
  get_target_property(folder ${target} SOURCE_DIR)
  list(FILTER sources INCLUDE REGEX ${pattern})
  list(TRANSFORM sources PREPEND ${folder}/)
  set(counted ${target}_counted)
  add_library(${counted} OBJECT ${sources})
  if(QVL_SANITIZE)
    target_compile_options(${counted} PRIVATE -fno-sanitize=all)
  endif()
  if(QVL_BUILD_FUZZERS)
    target_compile_options(${counted} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
  target_compile_options(${counted} PRIVATE -O1 -fsanitize-coverage=trace-pc)
  qvl_precompile(${counted})
  target_include_directories(${counted} PUBLIC
    ${folder} $<TARGET_PROPERTY:${target},INTERFACE_INCLUDE_DIRECTORIES>)
  target_compile_definitions(${counted} PRIVATE $<TARGET_PROPERTY:${target},COMPILE_DEFINITIONS>)
endfunction()

qvl_counted(qvlsmilparser .)
target_link_libraries(qvlsmilparser_counted PUBLIC $<TARGET_PROPERTY:qvlsmilparser,LINK_LIBRARIES>)
if(TARGET qvlmms_parts)
  qvl_counted(qvlmms_parts "^((input|list|view)/|check/(charset_fit|findings|header_checks|mandatory_fields|rules)\\.cpp)")
  target_link_libraries(qvlmms_parts_counted PUBLIC qvlsmilparser_counted)
endif()
