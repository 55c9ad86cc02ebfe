# Prepares the installed files for Debian: adds changelog and copyright to each package, compresses the manual pages, and
# strips the compiler's comments and notes from programs and library. CPack runs this script before it packs the files.
function(compress file)
    execute_process(COMMAND gzip -9n ${file} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

foreach(component_and_package docs:tavidoc site:tavidoc-site core:libtavidoc-dev)
    string(REPLACE ":" ";" pair ${component_and_package})
    list(GET pair 0 component)
    list(GET pair 1 package)
    set(share ${CPACK_TEMPORARY_DIRECTORY}/${component}${CPACK_PACKAGING_INSTALL_PREFIX}/share)
    file(GLOB pages ${share}/man/man*/*)
    foreach(page ${pages})
        compress(${page})
    endforeach()
    file(COPY ${CPACK_TAVIDOC_PACKAGING_DIRECTORY}/copyright ${CPACK_TAVIDOC_PACKAGING_DIRECTORY}/changelog
        DESTINATION ${share}/doc/${package}
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    compress(${share}/doc/${package}/changelog)
endforeach()

set(overrides ${CPACK_TEMPORARY_DIRECTORY}/docs${CPACK_PACKAGING_INSTALL_PREFIX}/share/lintian/overrides)
file(MAKE_DIRECTORY ${overrides})
file(COPY_FILE ${CPACK_TAVIDOC_PACKAGING_DIRECTORY}/lintian-overrides ${overrides}/tavidoc)

file(GLOB programs ${CPACK_TEMPORARY_DIRECTORY}/docs${CPACK_PACKAGING_INSTALL_PREFIX}/bin/*
    ${CPACK_TEMPORARY_DIRECTORY}/site${CPACK_PACKAGING_INSTALL_PREFIX}/bin/*)
execute_process(COMMAND strip --remove-section=.comment --remove-section=.note ${programs} COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE libraries ${CPACK_TEMPORARY_DIRECTORY}/core/*.a)
execute_process(COMMAND strip --strip-debug --remove-section=.comment --remove-section=.note --enable-deterministic-archives
    ${libraries} COMMAND_ERROR_IS_FATAL ANY)
