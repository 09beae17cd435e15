# Writes the description of the module tamber.Ui for QML editors, or checks the one there is.
#   cmake -DDUMP=<qmlplugindump> -DIMPORT_PATH=<dir> -DCOMMITTED=<file> [-DCHECK=ON] -P QmlTypes.cmake
execute_process(
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen QML2_IMPORT_PATH= LC_ALL=C.UTF-8
        ${DUMP} -nonrelocatable -noforceqtquick tamber.Ui 1.0 ${IMPORT_PATH}
    OUTPUT_VARIABLE types ERROR_VARIABLE messages RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR types STREQUAL "")
    message(FATAL_ERROR "qmlplugindump failed: ${messages}")
endif()
# The tool writes down its own command line, which holds a path of this machine.
string(REGEX REPLACE "// 'qmlplugindump [^\n]*'" "// 'qmlplugindump -nonrelocatable tamber.Ui 1.0'" types "${types}")

if(NOT CHECK)
    file(WRITE "${COMMITTED}" "${types}")
    return()
endif()
file(READ "${COMMITTED}" committed)
if(NOT types STREQUAL committed)
    message(FATAL_ERROR "${COMMITTED} is not current; build the target kit_qmltypes and commit it")
endif()
