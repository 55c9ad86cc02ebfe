# tavidoc_add_docs(NAME [SOURCES file...] [HEADERS file...] OUTPUT directory [STYLE css] [FAIL_ON_ERROR])
#
# Adds the target NAME, a part of "all", that makes the pages of markup sources and of headers in the directory OUTPUT
# (below the binary directory unless it is absolute), with a style sheet: STYLE, or the one that comes with the program.
# One process for each file: they run beside each other, and a file's pages are made anew when it, anything that it
# includes, presents or copies, a definition file beside it, or the program has changed. Names in the markup start at the
# directory of the CMakeLists.txt that calls. Errors and warnings read like those of a compiler; with FAIL_ON_ERROR an
# error fails the build. The pages are written in any case: they show where the error is.
#
# The program goes by what follows the first dot of a file's name: a source ends in ".dg", a header in ".h", and there is
# no other dot. Any other file would make no page, so it is an error here.
cmake_policy(PUSH)
cmake_policy(VERSION 3.25)

function(tavidoc_add_docs name)
    cmake_parse_arguments(PARSE_ARGV 1 docs "FAIL_ON_ERROR" "OUTPUT;STYLE" "SOURCES;HEADERS")
    if(docs_UNPARSED_ARGUMENTS OR docs_KEYWORDS_MISSING_VALUES)
        message(FATAL_ERROR "tavidoc_add_docs(${name}): what are these: "
            "${docs_UNPARSED_ARGUMENTS} ${docs_KEYWORDS_MISSING_VALUES}")
    endif()
    if(NOT docs_OUTPUT)
        message(FATAL_ERROR "tavidoc_add_docs(${name}): OUTPUT is missing")
    endif()
    _tavidoc_check_suffixes("${name}" SOURCES ".dg" ${docs_SOURCES})
    _tavidoc_check_suffixes("${name}" HEADERS ".h" ${docs_HEADERS})
    cmake_path(ABSOLUTE_PATH docs_OUTPUT BASE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}" NORMALIZE)
    if(NOT docs_STYLE)
        get_property(docs_STYLE GLOBAL PROPERTY TAVIDOC_STYLE_SHEET)
    endif()
    cmake_path(ABSOLUTE_PATH docs_STYLE NORMALIZE)

    set(strictness "")
    if(docs_FAIL_ON_ERROR)
        set(strictness --fail-on-error)
    endif()
    set(forget_old_dependencies "")
    if(CMAKE_GENERATOR MATCHES "Makefiles")
        # CMake adds what a dependency file names to what earlier ones named, so a file that was included once and is gone
        # would count as changed for ever. Without its cache it reads them all anew.
        set(forget_old_dependencies COMMAND "${CMAKE_COMMAND}" -E rm -f
            "${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${name}.dir/compiler_depend.internal")
    endif()
    set(stamps "")
    foreach(input IN LISTS docs_SOURCES docs_HEADERS)
        cmake_path(ABSOLUTE_PATH input BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE)
        # Inputs in different directories may have the same name.
        cmake_path(GET input FILENAME file)
        string(SHA1 place "${input}")
        string(SUBSTRING "${place}" 0 8 place)
        set(stamp "${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${name}.docs/${place}/${file}.stamp")
        _tavidoc_list_definitions("${input}" "${stamp}.definitions")
        add_custom_command(OUTPUT "${stamp}"
            # The companion says the same once more, with the places as compilers write them.
            COMMAND tavidoc::tavidoc -o "${docs_OUTPUT}" "${input}" > /dev/null
            COMMAND tavidoc::deps ${strictness} -t "${stamp}" -o "${stamp}.d" "${input}"
            ${forget_old_dependencies}
            COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
            DEPENDS "${input}" "${stamp}.definitions" "$<TARGET_FILE:tavidoc::tavidoc>" "$<TARGET_FILE:tavidoc::deps>"
            DEPFILE "${stamp}.d"
            WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
            COMMENT "Documenting ${file}"
            VERBATIM)
        list(APPEND stamps "${stamp}")
    endforeach()

    add_custom_target(${name} ALL DEPENDS ${stamps} SOURCES ${docs_SOURCES} ${docs_HEADERS})
    _tavidoc_copy_style("${name}" "${docs_STYLE}" "${docs_OUTPUT}/default.css")
endfunction()

# Refuses files, given as the argument KEYWORD of the target NAME, whose names do not end in SUFFIX at their first dot.
function(_tavidoc_check_suffixes name keyword suffix)
    foreach(input IN LISTS ARGN)
        string(REGEX REPLACE "^.*/" "" file "${input}")
        string(REGEX MATCH "[.].*" file_suffix "${file}")
        if(NOT file_suffix STREQUAL suffix)
            message(FATAL_ERROR "tavidoc_add_docs(${name}): ${keyword}: \"${input}\" would make no pages: "
                "expected a name that ends in \"${suffix}\" and has no other dot")
        endif()
    endforeach()
endfunction()

# Lets the target NAME copy a style sheet, or wait for the target that does: several may write to one directory.
function(_tavidoc_copy_style name style copy)
    get_property(owner GLOBAL PROPERTY "TAVIDOC_STYLE ${copy}")
    if(NOT owner)
        set(owner ${name}_style)
        set_property(GLOBAL PROPERTY "TAVIDOC_STYLE ${copy}" ${owner})
        add_custom_command(OUTPUT "${copy}"
            COMMAND "${CMAKE_COMMAND}" -E copy "${style}" "${copy}"
            DEPENDS "${style}"
            COMMENT "Copying the style sheet of ${name}"
            VERBATIM)
        add_custom_target(${owner} DEPENDS "${copy}")
    endif()
    add_dependencies(${name} ${owner})
endfunction()

# Writes to the file LIST which definition files stand beside INPUT. Every build looks whether that is still so, because a
# rule cannot name a file that is not there yet.
function(_tavidoc_list_definitions input list)
    cmake_path(GET input PARENT_PATH directory)
    file(GLOB definitions CONFIGURE_DEPENDS "${directory}/menus.xml" "${directory}/messages.xml" "${directory}/keys.xml"
        "${directory}/properties.xml")
    file(CONFIGURE OUTPUT "${list}" CONTENT "${definitions}\n" @ONLY)
endfunction()

cmake_policy(POP)
