add_library(mrvWarnings INTERFACE)
target_compile_options(mrvWarnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor
    $<$<BOOL:${MRV_WARNINGS_AS_ERRORS}>:-Werror>
    # The assertion macros take an optional message.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>
)
