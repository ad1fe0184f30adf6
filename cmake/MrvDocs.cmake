# The pages of the public headers, by the target mrvDocs; they begin at docs/html/index.html of the build's folder.

find_program(MRV_DOXYGEN doxygen)

add_custom_target(mrvDocs
    COMMAND "${PROJECT_SOURCE_DIR}/scripts/build-docs.sh" "${PROJECT_BINARY_DIR}/docs" "${PROJECT_VERSION}"
    VERBATIM)
