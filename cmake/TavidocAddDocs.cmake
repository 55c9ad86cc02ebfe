# tavidoc_add_docs(NAME [SOURCES file...] [HEADERS file...] OUTPUT directory [STYLE css] [FAIL_ON_ERROR])
#
# Adds the target NAME, which is part of "all". It generates the pages of markup sources and headers in the directory
# OUTPUT (relative to the binary directory) and copies a style sheet there: STYLE, or the one installed with the program.
# Each file has its own process, and the processes can run in parallel. Pages are regenerated when the input, a file that
# it includes, presents or copies, a definition file next to it, or the program has changed. Names in the markup are
# relative to the directory of the calling CMakeLists.txt. Errors and warnings are in the format of compilers. With
# FAIL_ON_ERROR an error fails the build; the pages are written in any case and mark the error.
#
# The part of a file name after its first dot determines the type: ".dg" for a source, ".h" for a header. The program
# generates no pages from any other file, so other names are an error here.
cmake_policy(PUSH)
cmake_policy(VERSION 3.25)

function(tavidoc_add_docs name)
    cmake_parse_arguments(PARSE_ARGV 1 docs "FAIL_ON_ERROR" "OUTPUT;STYLE" "SOURCES;HEADERS")
    if(docs_UNPARSED_ARGUMENTS OR docs_KEYWORDS_MISSING_VALUES)
        message(FATAL_ERROR "tavidoc_add_docs(${name}): unknown arguments or keywords without values: "
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
        # CMake merges each dependency file with the earlier ones, so an include that has been removed would count as
        # changed forever. Removing CMake's cache makes it read all dependency files again.
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
            # tavidoc-deps reports the same errors again, in the format of compilers.
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

# Rejects files of the argument KEYWORD of the target NAME if the part of their name after the first dot is not SUFFIX.
function(_tavidoc_check_suffixes name keyword suffix)
    foreach(input IN LISTS ARGN)
        string(REGEX REPLACE "^.*/" "" file "${input}")
        string(REGEX MATCH "[.].*" file_suffix "${file}")
        if(NOT file_suffix STREQUAL suffix)
            message(FATAL_ERROR "tavidoc_add_docs(${name}): ${keyword}: no pages would be generated from \"${input}\": "
                "expected a name that ends in \"${suffix}\" and has no other dot")
        endif()
    endforeach()
endfunction()

# Lets the target NAME copy a style sheet. Targets that share a directory depend on the first one, which copies it.
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

# Writes to the file LIST which definition files are in the directory of INPUT. Every build checks that, because a
# rule cannot name a file that is not there yet.
function(_tavidoc_list_definitions input list)
    cmake_path(GET input PARENT_PATH directory)
    file(GLOB definitions CONFIGURE_DEPENDS "${directory}/menus.xml" "${directory}/messages.xml" "${directory}/keys.xml"
        "${directory}/properties.xml")
    file(CONFIGURE OUTPUT "${list}" CONTENT "${definitions}\n" @ONLY)
endfunction()

cmake_policy(POP)
