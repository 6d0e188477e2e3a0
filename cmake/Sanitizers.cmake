# QVL_SANITIZE applies to every target, so that library and tests agree.
if(QVL_SANITIZE)
  add_compile_options(-fsanitize=${QVL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${QVL_SANITIZE})
endif()
