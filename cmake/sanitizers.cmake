# The sanitizers watch the product: the library, the tool, the examples. The tests call it from
# outside, and compiling their many small instantiations with checks would double the build.
add_library(qv_sanitizers INTERFACE)
if(QV_SANITIZE)
    target_compile_options(qv_sanitizers INTERFACE
        -fsanitize=${QV_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
    add_link_options(-fsanitize=${QV_SANITIZE})
endif()
