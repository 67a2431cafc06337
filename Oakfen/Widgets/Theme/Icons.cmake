# Compiles the icons that Symbols.txt names into OakfenWidgets, each under its symbol name. They come
# from the system's icon package at build time; none is kept in the tree. The program's own picture
# goes with them.
find_path(OAKFEN_ICON_FOLDER bank.svg
    PATHS /usr/share/bootstrap-icons/svg /usr/share/bootstrap-icons
    DOC "Folder of the SVG files of the package bootstrap-icons" REQUIRED)

set(symbolTable ${CMAKE_CURRENT_LIST_DIR}/Symbols.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${symbolTable})
file(STRINGS ${symbolTable} symbolLines REGEX "^[^#]")
set(symbolResource "<RCC><qresource prefix=\"/symbols\">\n")
foreach(line IN LISTS symbolLines)
    string(REPLACE " " ";" pair "${line}")
    list(GET pair 0 symbol)
    list(GET pair 1 icon)
    string(APPEND symbolResource
        "<file alias=\"${symbol}.svg\">${OAKFEN_ICON_FOLDER}/${icon}.svg</file>\n")
endforeach()
string(APPEND symbolResource "</qresource>\n<qresource prefix=\"/icon\">\n")
file(GLOB pictures CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/Resources/Icon/*.svg)
foreach(picture IN LISTS pictures)
    get_filename_component(name ${picture} NAME)
    string(APPEND symbolResource "<file alias=\"${name}\">${picture}</file>\n")
endforeach()
string(APPEND symbolResource "</qresource></RCC>\n")
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/symbols.qrc CONTENT "${symbolResource}" @ONLY)

qt6_add_resources(symbolSources ${CMAKE_CURRENT_BINARY_DIR}/symbols.qrc)
set_source_files_properties(${symbolSources} PROPERTIES
    SKIP_PRECOMPILE_HEADERS ON SKIP_AUTOMOC ON COMPILE_OPTIONS -w)
target_sources(OakfenWidgets PRIVATE ${symbolSources})
