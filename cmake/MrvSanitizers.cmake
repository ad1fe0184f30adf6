set(MRV_SANITIZE "" CACHE STRING "Sanitizers, separated by commas: address,undefined or thread")

add_library(mrvSanitizers INTERFACE)
if(MRV_SANITIZE)
    set(mrvSanitizeOptions "-fsanitize=${MRV_SANITIZE}" -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(mrvSanitizers INTERFACE ${mrvSanitizeOptions})
    target_link_options(mrvSanitizers INTERFACE ${mrvSanitizeOptions})
endif()
