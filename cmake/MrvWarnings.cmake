add_library(mrvWarnings INTERFACE)
target_compile_options(mrvWarnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor
    $<$<BOOL:${MRV_WARNINGS_AS_ERRORS}>:-Werror>
    # Of sources put into one these tell what is no fault; the sanitizers' builds see each source alone.
    $<$<BOOL:${CMAKE_UNITY_BUILD}>:-Wno-shadow>
    $<$<AND:$<BOOL:${CMAKE_UNITY_BUILD}>,$<CXX_COMPILER_ID:GNU>>:-Wno-subobject-linkage>
    # The assertion macros take an optional message.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>
)
