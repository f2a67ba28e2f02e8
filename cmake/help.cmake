# How compiled help files are made: with chmcmd, from a folder with a project (.hhp.in), its contents, its index, pages
# and styles, and from pictures that are drawn beforehand.
find_program(CHMCMD NAMES chmcmd chmcmd-3.2.2 REQUIRED)  # Debian: fp-utils-3.2.2

# tabulon_help_file(TARGET FOLDER PICTURES…): compiles FOLDER/<name>.hhp.in to TARGET, where <name> is the name of TARGET.
function(tabulon_help_file target folder)
    cmake_path(GET target STEM name)
    cmake_path(GET target PARENT_PATH target_folder)
    set(work ${CMAKE_CURRENT_BINARY_DIR}/${name})
    file(GLOB sources CONFIGURE_DEPENDS RELATIVE ${folder} ${folder}/*.html ${folder}/*.css ${folder}/*.txt)
    set(pictures ${ARGN})
    list(TRANSFORM pictures REPLACE "^${work}/" "")
    list(JOIN sources "\n" help_files)
    list(JOIN pictures "\n" help_pictures)
    set(help_files "${help_files}\n${help_pictures}")
    set(help_target ${target})
    configure_file(${folder}/${name}.hhp.in ${work}/${name}.hhp @ONLY)
    set(copied)
    foreach(source IN LISTS sources ITEMS ${name}.hhc ${name}.hhk)
        add_custom_command(OUTPUT ${work}/${source}
            COMMAND ${CMAKE_COMMAND} -E copy ${folder}/${source} ${work}/${source}
            DEPENDS ${folder}/${source}
            VERBATIM)
        list(APPEND copied ${work}/${source})
    endforeach()
    add_custom_command(OUTPUT ${target}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${target_folder}
        COMMAND ${CMAKE_COMMAND} -E rm -f ${target}
        COMMAND ${CHMCMD} --verbosity 1 --no-html-scan ${name}.hhp
        COMMAND ${CMAKE_COMMAND} -E touch ${target}
        WORKING_DIRECTORY ${work}
        DEPENDS ${work}/${name}.hhp ${copied} ${ARGN}
        COMMENT "Compiling the help file ${name}"
        VERBATIM)
endfunction()
