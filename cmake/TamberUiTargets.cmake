# What every target of this project has in common, and how resource bundles are compiled into one.

# These come with Qt's tools but have no imported targets in Qt 5.
get_target_property(qmake_path Qt5::qmake IMPORTED_LOCATION)
get_filename_component(qt_tools_dir "${qmake_path}" DIRECTORY)
find_program(TAMBERUI_QMLPLUGINDUMP qmlplugindump HINTS "${qt_tools_dir}" /usr/lib/qt5/bin)
find_program(TAMBERUI_QMLCACHEGEN qmlcachegen HINTS "${qt_tools_dir}" /usr/lib/qt5/bin REQUIRED)

# Compiler settings for one of our own targets; nothing of it reaches the targets that link to it.
# What Qt 5.15 itself deprecates stays: the simple materials of the scene graph are among it.
function(tamber_target_defaults target)
    target_compile_definitions(${target} PRIVATE
        QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
        QT_USE_QSTRINGBUILDER QT_DEPRECATED_WARNINGS QT_DISABLE_DEPRECATED_BEFORE=0x050E00
        QT_STRICT_ITERATORS)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow=local -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align)
    if(TAMBERUI_DEVELOPER_BUILD)
        target_compile_options(${target} PRIVATE -Werror)
        target_compile_definitions(${target} PRIVATE QT_FORCE_ASSERTS)
    endif()
    if(TAMBERUI_SANITIZER)
        target_compile_options(${target} PRIVATE
            -fsanitize=${TAMBERUI_SANITIZER} -fno-omit-frame-pointer -fno-sanitize-recover=all)
        target_link_options(${target} PRIVATE -fsanitize=${TAMBERUI_SANITIZER})
    endif()
endfunction()

# tamber_add_resources(<target> <bundle>.qrc [EXPORT])
#
# Compiles a bundle into the target under the functions qInitResources_<bundle>() and
# qCleanupResources_<bundle>(), which also run when the binary is loaded and unloaded. Entries are
# stored as they are unless the .qrc file says otherwise for one of them.
#
# QML files of the bundle are compiled ahead of time as well. Their text stays readable under its
# qrc: path, which Qt's own CMake macro does not offer: the data goes into a bundle <bundle>_data,
# and the loader of the compiled units, which carries the name <bundle>, registers both.
#
# EXPORT makes the two functions visible outside a library with hidden symbols.
function(tamber_add_resources target qrc)
    cmake_parse_arguments(PARSE_ARGV 2 arg "EXPORT" "" "")
    get_filename_component(qrc "${qrc}" ABSOLUTE)
    get_filename_component(bundle "${qrc}" NAME_WE)
    get_filename_component(qrc_dir "${qrc}" DIRECTORY)
    set(out "${CMAKE_CURRENT_BINARY_DIR}/${bundle}")
    file(MAKE_DIRECTORY "${out}")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${qrc}")

    # The files are read from the .qrc itself: it stays the one list of what is compiled in.
    set(files)
    set(qml_files)
    file(STRINGS "${qrc}" lines REGEX "<file")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE ".*<file[^>]*>([^<]+)</file>.*" "\\1" file "${line}")
        get_filename_component(file "${file}" ABSOLUTE BASE_DIR "${qrc_dir}")
        list(APPEND files "${file}")
        if(file MATCHES "\\.(qml|js|mjs)$")
            list(APPEND qml_files "${file}")
        endif()
    endforeach()

    set(data ${bundle})
    set(sources)
    if(qml_files)
        set(data ${bundle}_data)
        foreach(file IN LISTS qml_files)
            get_filename_component(name "${file}" NAME)
            string(REPLACE "." "_" name "${name}")
            add_custom_command(OUTPUT "${out}/${name}.cpp"
                COMMAND ${TAMBERUI_QMLCACHEGEN} "--resource=${qrc}" -o "${out}/${name}.cpp" "${file}"
                DEPENDS "${file}" "${qrc}" COMMENT "Compiling ${name}" VERBATIM)
            list(APPEND sources "${out}/${name}.cpp")
        endforeach()
        set(loader "${out}/qmlcache_loader.cpp")
        add_custom_command(OUTPUT "${loader}"
            COMMAND ${TAMBERUI_QMLCACHEGEN} "--resource-file-mapping=${qrc}=${data}.qrc" -o "${loader}" "${qrc}"
            DEPENDS "${qrc}" ${qml_files} VERBATIM)
        list(APPEND sources "${loader}")
    endif()
    add_custom_command(OUTPUT "${out}/${data}.cpp"
        COMMAND Qt5::rcc --name ${data} --format-version 2 --compress-algo none -o "${out}/${data}.cpp" "${qrc}"
        DEPENDS "${qrc}" ${files} COMMENT "Packing ${bundle}" VERBATIM)
    list(APPEND sources "${out}/${data}.cpp")

    set_source_files_properties(${sources} PROPERTIES SKIP_AUTOMOC ON COMPILE_OPTIONS "-w")
    if(arg_EXPORT)
        set_property(SOURCE ${sources} APPEND PROPERTY COMPILE_OPTIONS -fvisibility=default)
    endif()
    target_sources(${target} PRIVATE ${sources})
endfunction()
