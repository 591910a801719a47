# Writes the files that tell the desktop of the program into OUT, for a program in BINDIR.
#   cmake -DBINDIR=/usr/bin -DVERSION=1.0 -DOUT=folder -P WriteDesktopFiles.cmake
foreach(name BINDIR VERSION OUT)
    if(NOT DEFINED ${name})
        message(FATAL_ERROR "${name} is not given")
    endif()
endforeach()
get_filename_component(BINDIR "${BINDIR}" ABSOLUTE)

# In a desktop file a backslash counts twice: for its texts, and for quoted arguments.
string(REPLACE "\\" "\\\\\\\\" quoted "${BINDIR}/zolva")
string(REPLACE "\"" "\\\\\"" quoted "${quoted}")
string(REPLACE "`" "\\\\`" quoted "${quoted}")
string(REPLACE "$" "\\\\$" quoted "${quoted}")
string(REPLACE "%" "%%" quoted "${quoted}")
set(DESKTOP_EXEC "\"${quoted}\"")
# The bus splits as a shell does.
string(REPLACE "'" "'\\''" quoted "${BINDIR}/zolva")
set(SERVICE_EXEC "'${quoted}'")
if("${BINDIR}" MATCHES "^[A-Za-z0-9/_.+-]+$")
    set(DESKTOP_EXEC "${BINDIR}/zolva")
    set(SERVICE_EXEC "${BINDIR}/zolva")
endif()
foreach(file desktop service metainfo.xml)
    configure_file("${CMAKE_CURRENT_LIST_DIR}/org.zolva.Zolva.${file}.in"
                   "${OUT}/org.zolva.Zolva.${file}" @ONLY)
endforeach()
