# Writes a file's bytes as the elements of a C array: cmake -DINPUT=<file> -DOUTPUT=<file> -P Bytes.cmake
file(READ "${INPUT}" bytes HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
file(WRITE "${OUTPUT}" "${bytes}\n")
