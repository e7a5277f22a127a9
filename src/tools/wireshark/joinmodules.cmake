# Joins the modules of the dissector into the file OUTPUT. Each becomes a function in package.preload, so that "require" finds it.
# The module "commands" is made from the enumeration in COMMAND_CODES, the module "version" from VERSION.

file(STRINGS ${COMMAND_CODES} enumerators REGEX "^    [A-Za-z]+ += 0x[0-9A-F]+,")
set(commands "return {\n")
foreach(enumerator IN LISTS enumerators)
    string(REGEX REPLACE "^ +([A-Za-z]+) += (0x[0-9A-F]+),.*$" "    [\\2] = \"\\1\",\n" row "${enumerator}")
    string(APPEND commands "${row}")
endforeach()
string(APPEND commands "}\n")
set(version "return \"${VERSION}\"\n")

set(text "-- Wireshark dissector for the protocol of Tavoro devices, version ${VERSION}. Joined from several modules by the build.\n\n")
string(APPEND text "if package.loaded[\"tavoro.main\"] then\n    return -- another copy of this file is installed\nend\n")
foreach(module IN LISTS MODULES)
    if(DEFINED ${module})
        set(content "${${module}}")
    else()
        file(READ ${SOURCE_DIR}/${module}.lua content)
    endif()
    string(APPEND text "\npackage.preload[\"tavoro.${module}\"] = function()\n${content}end\n")
endforeach()
string(APPEND text "\nrequire(\"tavoro.main\")\n")
file(WRITE ${OUTPUT} "${text}")
