# The fonts of the screens, where the system's own will not do: changed copies of Inter and
# JetBrains Mono in a target's resources, under :/kit/fonts.

function(zolva_add_fonts target)
    # The modules of the distribution's packages are those of its own interpreter.
    find_program(ZOLVA_FONT_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)
    find_path(ZOLVA_INTER_FOLDER Inter-Regular.otf
        PATH_SUFFIXES share/fonts/opentype/inter share/fonts/inter REQUIRED)
    find_path(ZOLVA_MONO_FOLDER JetBrainsMono-Regular.ttf
        PATH_SUFFIXES share/fonts/truetype/jetbrains-mono share/fonts/jetbrains-mono REQUIRED)
    set(script "${PROJECT_SOURCE_DIR}/src/screens/kit/fonts/make_font.py")
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/fonts")
    set(files "")
    foreach(weight Regular Medium SemiBold Bold)
        set(made "${folder}/ZolvaText-${weight}.otf")
        add_custom_command(OUTPUT "${made}"
            COMMAND "${ZOLVA_FONT_PYTHON}" "${script}" "${ZOLVA_INTER_FOLDER}/Inter-${weight}.otf"
                    "${made}" --family "Zolva Text" --style ${weight} --tabular
            DEPENDS "${script}" VERBATIM)
        list(APPEND files "${made}")
    endforeach()
    foreach(weight Regular Medium SemiBold)
        set(made "${folder}/ZolvaMono-${weight}.ttf")
        add_custom_command(OUTPUT "${made}"
            COMMAND "${ZOLVA_FONT_PYTHON}" "${script}"
                    "${ZOLVA_MONO_FOLDER}/JetBrainsMono-${weight}.ttf"
                    "${made}" --family "Zolva Mono" --style ${weight}
            DEPENDS "${script}" VERBATIM)
        list(APPEND files "${made}")
    endforeach()
    foreach(package fonts-inter fonts-jetbrains-mono)
        set(licence "${folder}/${package}.licence")
        configure_file("/usr/share/doc/${package}/copyright" "${licence}" COPYONLY)
        list(APPEND files "${licence}")
    endforeach()
    qt_add_resources(${target} ${target}_fonts PREFIX /kit/fonts BASE "${folder}" FILES ${files})
endfunction()
