# The Debian packages built by "packaging/make-package", one for each component
set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL docs site core)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGE_CONTACT "The founders of tavidoc <founders@tavidoc.invalid>")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/finish.cmake)
set(CPACK_TAVIDOC_PACKAGING_DIRECTORY ${PROJECT_SOURCE_DIR}/packaging)

set(CPACK_DEBIAN_DOCS_PACKAGE_NAME tavidoc)
set(CPACK_DEBIAN_DOCS_PACKAGE_SECTION text)
set(CPACK_DEBIAN_DOCS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_DOCS_DESCRIPTION "tavidoc generates plain HTML pages from documentation in a small markup
language and from the comments of C and C++ headers. Lexers colour the
listings, and menu paths and keys are looked up in the definitions of the
documented program. Errors are reported with file and line, and a CMake
function integrates documentation into a build.")

set(CPACK_DEBIAN_SITE_PACKAGE_NAME tavidoc-site)
set(CPACK_DEBIAN_SITE_PACKAGE_SECTION text)
set(CPACK_DEBIAN_SITE_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_SITE_PACKAGE_RECOMMENDS "tavidoc (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_SITE_DESCRIPTION "tavidoc-site generates one site from many documents in
a small markup language and many C and C++ headers: pages with a contents tree,
previous and next, an index of names, and a search that works offline. Dead
links, missing pictures and other faults are reported with file and line. Only
what changed is made again.")

set(CPACK_DEBIAN_CORE_PACKAGE_NAME libtavidoc-dev)
set(CPACK_DEBIAN_CORE_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_CORE_PACKAGE_DEPENDS "tavidoc (= ${PROJECT_VERSION}), qt6-base-dev (>= 6.4)")
set(CPACK_DEBIAN_CORE_DESCRIPTION "This is the library of the program tavidoc. It makes documentation pages,
reads the declarations of C and C++ headers, and colours listings. The package
has its headers and the static library.")
include(CPack)
