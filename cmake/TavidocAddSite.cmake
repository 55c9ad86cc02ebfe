# tavidoc_add_site(NAME [PROJECT file] [FOLDER folder] INPUTS file... [[FOLDER folder] INPUTS file...]...
#                  OUTPUT directory [FAIL_ON_ERROR | STRICT])
#
# Adds the target NAME, which is part of "all". It makes one site of markup sources and headers in the directory OUTPUT
# (relative to the binary directory). Each input is compiled into a record by a process of its own, the records are
# linked, and the pages of each record are rendered. After a change only the records of the changed inputs, the link and
# pages that differ are made again. Names are relative to the directory of the calling CMakeLists.txt.
#
# A FOLDER holds for the INPUTS after it, up to the next FOLDER; "{name}" in it is the name of the input up to its first
# dot. PROJECT is a project file (site.toml) with title, assets, levels of checks and so on; what it says about inputs is
# not used. With FAIL_ON_ERROR an error that linking finds fails the build, and with STRICT a warning does, too; without
# them findings are only reported.
cmake_policy(PUSH)
cmake_policy(VERSION 3.25)

function(tavidoc_add_site name)
    _tavidoc_parse_site("${name}" ${ARGN})
    set(work "${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${name}.site")
    set(link "${work}/link")
    set(strictness --exit-zero)
    if(site_STRICT)
        set(strictness --strict)
    elseif(site_FAIL_ON_ERROR)
        set(strictness "")
    endif()
    set(forget_old_dependencies "")
    set(touch "")
    if(CMAKE_GENERATOR MATCHES "Makefiles")
        # CMake merges each dependency file with the earlier ones, so an include that has been removed would count as
        # changed forever. Removing CMake's cache makes it read all dependency files again.
        set(forget_old_dependencies COMMAND "${CMAKE_COMMAND}" -E rm -f
            "${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${name}.dir/compiler_depend.internal")
        # Make knows a command that changed nothing only by a new time of its output. So it renders all records after
        # each link, but pages that do not differ are not written.
        set(touch COMMAND "${CMAKE_COMMAND}" -E touch)
    endif()
    macro(_tavidoc_touch variable file)
        set(${variable} "")
        if(touch)
            set(${variable} ${touch} "${file}")
        endif()
    endmacro()

    set(records "")
    set(links "")
    set(stamps "")
    file(MAKE_DIRECTORY "${work}")
    foreach(input folder IN ZIP_LISTS site_INPUTS site_FOLDERS)
        string(REGEX REPLACE "^/$" "" folder "${folder}") # an empty element would not be one
        cmake_path(GET input FILENAME file)
        # As the program names links: inputs in different directories may have the same name.
        string(SHA1 place "${folder}|${input}")
        string(SUBSTRING "${place}" 0 16 place)
        set(record "${work}/${file}-${place}.tdr")
        _tavidoc_touch(touch_record "${record}")
        add_custom_command(OUTPUT "${record}"
            COMMAND tavidoc::site compile "${input}" -o "${record}" --depfile "${record}.d"
                "$<$<BOOL:${folder}>:--folder=${folder}>"
            ${touch_record}
            ${forget_old_dependencies}
            DEPENDS "${input}" "$<TARGET_FILE:tavidoc::site>"
            DEPFILE "${record}.d"
            WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
            COMMENT "Compiling ${file} for ${name}"
            COMMAND_EXPAND_LISTS VERBATIM)
        list(APPEND records "${record}")
        list(APPEND links "${link}/${file}-${place}.lnk")
        set(stamp "${record}.rendered")
        add_custom_command(OUTPUT "${stamp}"
            COMMAND tavidoc::site render "${record}" --link "${link}" -o "${site_OUTPUT}" --depfile "${stamp}.d"
                --target "${stamp}"
            COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
            DEPENDS "${record}" "${link}/${file}-${place}.lnk" "${link}/settings" "$<TARGET_FILE:tavidoc::site>"
            DEPFILE "${stamp}.d"
            WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
            COMMENT "Rendering ${file} for ${name}"
            VERBATIM)
        list(APPEND stamps "${stamp}")
    endforeach()

    _tavidoc_touch(touch_link "${link}/site.lnk")
    # Ninja looks at the times of what it made (restat), so files that linking does not rewrite change nothing.
    add_custom_command(OUTPUT "${link}/site.lnk" "${link}/settings" "${link}/search/root.js" ${links}
        COMMAND tavidoc::site link ${site_PROJECT} ${records} -o "${link}" --quiet ${strictness}
            --depfile "${link}.d" --target "${link}/site.lnk"
        ${touch_link}
        DEPENDS ${site_PROJECT} ${records} "$<TARGET_FILE:tavidoc::site>"
        DEPFILE "${link}.d"
        WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
        COMMENT "Linking ${name}"
        VERBATIM)
    add_custom_command(OUTPUT "${work}/shared.rendered"
        COMMAND tavidoc::site render --link "${link}" -o "${site_OUTPUT}" --depfile "${work}/shared.rendered.d"
            --target "${work}/shared.rendered"
        COMMAND "${CMAKE_COMMAND}" -E touch "${work}/shared.rendered"
        DEPENDS "${link}/site.lnk" "${link}/search/root.js" "$<TARGET_FILE:tavidoc::site>"
        DEPFILE "${work}/shared.rendered.d"
        WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
        COMMENT "Rendering what all pages of ${name} share"
        VERBATIM)
    add_custom_target(${name} ALL DEPENDS "${work}/shared.rendered" ${stamps} SOURCES ${site_INPUTS})
endfunction()

# Sets site_INPUTS (absolute), site_FOLDERS (one for each input, "/" for the top), site_OUTPUT and site_PROJECT
# (absolute), site_FAIL_ON_ERROR and site_STRICT in the scope of the caller.
function(_tavidoc_parse_site name)
    set(folder "/")
    set(inputs "")
    set(folders "")
    set(keyword "")
    foreach(variable FAIL_ON_ERROR STRICT PROJECT OUTPUT) # which the caller may have for another purpose
        unset(site_${variable})
        unset(site_${variable} PARENT_SCOPE)
    endforeach()
    foreach(argument IN LISTS ARGN)
        if(argument MATCHES "^(FAIL_ON_ERROR|STRICT)$")
            set(site_${argument} TRUE PARENT_SCOPE)
            set(keyword "")
        elseif(argument MATCHES "^(PROJECT|FOLDER|INPUTS|OUTPUT)$")
            set(keyword "${argument}")
        elseif(keyword STREQUAL "INPUTS")
            cmake_path(ABSOLUTE_PATH argument BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE
                OUTPUT_VARIABLE input)
            cmake_path(GET input STEM base)
            string(REPLACE "{name}" "${base}" input_folder "${folder}")
            list(APPEND inputs "${input}")
            list(APPEND folders "${input_folder}")
        elseif(keyword STREQUAL "FOLDER")
            set(folder "${argument}")
            set(keyword "")
        elseif(keyword MATCHES "^(PROJECT|OUTPUT)$")
            set(site_${keyword} "${argument}")
            set(keyword "")
        else()
            message(FATAL_ERROR "tavidoc_add_site(${name}): unknown argument: ${argument}")
        endif()
    endforeach()
    if(NOT inputs OR NOT site_OUTPUT)
        message(FATAL_ERROR "tavidoc_add_site(${name}): expected INPUTS and OUTPUT")
    endif()
    cmake_path(ABSOLUTE_PATH site_OUTPUT BASE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}" NORMALIZE)
    if(site_PROJECT)
        cmake_path(ABSOLUTE_PATH site_PROJECT BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE)
    endif()
    set(site_INPUTS "${inputs}" PARENT_SCOPE)
    set(site_FOLDERS "${folders}" PARENT_SCOPE)
    set(site_OUTPUT "${site_OUTPUT}" PARENT_SCOPE)
    set(site_PROJECT "${site_PROJECT}" PARENT_SCOPE)
endfunction()

cmake_policy(POP)
