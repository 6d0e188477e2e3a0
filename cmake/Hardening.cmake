# What arrives comes from strangers: mistakes that are still there shall end the attempt, not the
# handset. Fortified functions need an optimised build; sanitizers bring checks of their own.
if(NOT QVL_SANITIZE)
  add_compile_options(-fstack-protector-strong
    "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
  add_link_options(-Wl,-z,relro,-z,now)
endif()
