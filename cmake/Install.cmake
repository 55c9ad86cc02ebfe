# What "cmake --install" installs, in three components: "docs" to make pages, "site" to make sites, "core" to write
# programs with the library.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# Not in the library's directory: on Debian, CMake does not search that for a project without languages, which only
# makes pages.
set(package_dir ${CMAKE_INSTALL_DATADIR}/cmake/tavidoc)
set(header_dir ${CMAKE_INSTALL_INCLUDEDIR}/tavidoc)
set(data_dir ${CMAKE_INSTALL_DATADIR}/tavidoc)

# Programs, style sheet, manual, editor files
install(TARGETS tavidoc tavidoc_deps EXPORT tavidocPrograms RUNTIME COMPONENT docs)
install(EXPORT tavidocPrograms NAMESPACE tavidoc:: DESTINATION ${package_dir} COMPONENT docs)
install(FILES share/tavidoc/default.css DESTINATION ${data_dir} COMPONENT docs)
install(DIRECTORY ${PROJECT_BINARY_DIR}/editors DESTINATION ${data_dir} COMPONENT docs)
# The page for tavidoc names files that are installed, by the prefix that is known only now.
install(CODE "file(READ \"${PROJECT_SOURCE_DIR}/docs/man/tavidoc.1\" page)
    string(REPLACE \"/usr/share/\" \"\${CMAKE_INSTALL_PREFIX}/share/\" page \"\${page}\")
    file(WRITE \"${PROJECT_BINARY_DIR}/man/tavidoc.1\" \"\${page}\")" COMPONENT docs)
install(FILES ${PROJECT_BINARY_DIR}/man/tavidoc.1 docs/man/tavidoc-deps.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
    COMPONENT docs)
install(FILES docs/man/tavidoc.7 DESTINATION ${CMAKE_INSTALL_MANDIR}/man7 COMPONENT docs)
if(TAVIDOC_BUILD_MANUAL)
    install(DIRECTORY ${PROJECT_BINARY_DIR}/manual DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT docs)
endif()

# The program for sites, and its function for CMake
install(TARGETS tavidoc_site EXPORT tavidocSite RUNTIME COMPONENT site)
install(EXPORT tavidocSite NAMESPACE tavidoc:: DESTINATION ${package_dir} COMPONENT site)
install(FILES cmake/TavidocAddSite.cmake DESTINATION ${package_dir} COMPONENT site)
install(FILES docs/man/tavidoc-site.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT site)

# Completions. Debian's zsh looks for those of packages in a folder of its own.
set(zsh_dir ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(zsh_dir ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
endif()
foreach(program_and_component "tavidoc;docs" "tavidoc-deps;docs" "tavidoc-site;site")
    list(GET program_and_component 0 program)
    list(GET program_and_component 1 component)
    install(FILES share/completions/bash/${program} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        COMPONENT ${component})
    install(FILES share/completions/zsh/_${program} DESTINATION ${zsh_dir} COMPONENT ${component})
    install(FILES share/completions/fish/${program}.fish
        DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT ${component})
endforeach()

# The CMake package: the function, and the library if Qt is installed.
configure_package_config_file(cmake/tavidocConfig.cmake.in ${PROJECT_BINARY_DIR}/cmake/tavidocConfig.cmake
    INSTALL_DESTINATION ${package_dir} PATH_VARS data_dir NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/cmake/tavidocConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/cmake/tavidocConfig.cmake ${PROJECT_BINARY_DIR}/cmake/tavidocConfigVersion.cmake
    cmake/TavidocAddDocs.cmake DESTINATION ${package_dir} COMPONENT docs)

# The library with its public headers, which include each other by folder
install(TARGETS tavidoc_core EXPORT tavidocCore ARCHIVE COMPONENT core
    FILE_SET HEADERS DESTINATION ${header_dir} COMPONENT core)
install(EXPORT tavidocCore NAMESPACE tavidoc:: DESTINATION ${package_dir} COMPONENT core)
file(RELATIVE_PATH prefix_from_here ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/tavidoc.pc.in ${PROJECT_BINARY_DIR}/cmake/tavidoc.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/cmake/tavidoc.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT core)

# Everything that is installed, without the tests
add_custom_target(installed)
add_dependencies(installed tavidoc tavidoc_deps tavidoc_site editor_files)
if(TARGET manual)
    add_dependencies(installed manual)
endif()

include(cmake/Package.cmake)
