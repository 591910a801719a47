# The fonts of the screens, where the system's own will not do: changed copies of Inter and
# JetBrains Mono in a target's resources, under :/kit/fonts.

# Qt rounds sizes to whole pixels. A size like 12.5 is the next whole one of a second family that is
# smaller by this; between 11 and 15 pixels it is right to a twentieth of a pixel.
set(ZOLVA_HALF_PIXEL 0.9615)

# zolva_make_font(variable source family style [script's options...]): adds the made file to a list
function(zolva_make_font variable source family style)
    string(REPLACE " " "" name "${family}-${style}")
    get_filename_component(suffix "${source}" LAST_EXT)
    set(made "${CMAKE_CURRENT_BINARY_DIR}/fonts/${name}${suffix}")
    set(script "${PROJECT_SOURCE_DIR}/src/screens/kit/fonts/make_font.py")
    add_custom_command(OUTPUT "${made}"
        COMMAND "${ZOLVA_FONT_PYTHON}" "${script}" "${source}" "${made}" --family "${family}"
                --style ${style} ${ARGN}
        DEPENDS "${script}" "${source}" COMMENT "Font ${name}" VERBATIM)
    set(${variable} ${${variable}} "${made}" PARENT_SCOPE)
endfunction()

function(zolva_add_fonts target)
    # The modules of the distribution's packages are those of its own interpreter.
    find_program(ZOLVA_FONT_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)
    find_path(ZOLVA_INTER_FOLDER Inter-Regular.otf
        PATH_SUFFIXES share/fonts/opentype/inter share/fonts/inter REQUIRED)
    find_path(ZOLVA_MONO_FOLDER JetBrainsMono-Regular.ttf
        PATH_SUFFIXES share/fonts/truetype/jetbrains-mono share/fonts/jetbrains-mono REQUIRED)
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/fonts")
    set(files "")
    foreach(style Regular Medium SemiBold Bold)
        set(source "${ZOLVA_INTER_FOLDER}/Inter-${style}.otf")
        zolva_make_font(files "${source}" "Zolva Text" ${style} --tabular)
        zolva_make_font(files "${source}" "Zolva Text Half" ${style} --tabular
                        --smaller ${ZOLVA_HALF_PIXEL})
    endforeach()
    foreach(style Regular Medium)
        set(source "${ZOLVA_MONO_FOLDER}/JetBrainsMono-${style}.ttf")
        zolva_make_font(files "${source}" "Zolva Mono" ${style})
        zolva_make_font(files "${source}" "Zolva Mono Half" ${style} --smaller ${ZOLVA_HALF_PIXEL})
    endforeach()
    foreach(licence doc/fonts-inter/copyright doc/fonts-jetbrains-mono/copyright
                    common-licenses/Apache-2.0)
        string(REGEX REPLACE "doc/|common-|/copyright" "" name "${licence}")
        string(REPLACE "/" "-" name "${name}")
        configure_file("/usr/share/${licence}" "${folder}/${name}.txt" COPYONLY)
        list(APPEND files "${folder}/${name}.txt")
    endforeach()
    qt_add_resources(${target} ${target}_fonts PREFIX /kit/fonts BASE "${folder}" FILES ${files})
endfunction()
