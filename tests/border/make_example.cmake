# Makes a source of the example in the head comment of a public header.
# usage: cmake -DHEADER=FILE -DNAME=NAME -DOUTPUT=FILE -P make_example.cmake
#
# The example is the lines indented by four blanks below "Example:", up to the end of the comment.
file(READ ${HEADER} text)
string(REPLACE ";" "<semicolon>" text "${text}")
string(REPLACE "[" "<open>" text "${text}")
string(REPLACE "]" "<close>" text "${text}")
string(REPLACE "\n" ";" lines "${text}")
set(isHead TRUE)
set(isExample FALSE)
set(body "")
foreach(line IN LISTS lines)
    if(NOT line MATCHES "^//")
        break()
    elseif(line MATCHES "^// Example:")
        set(isExample TRUE)
    elseif(isExample AND line MATCHES "^//     (.*)$")
        string(APPEND body "    ${CMAKE_MATCH_1}\n")
    endif()
endforeach()
if(body STREQUAL "")
    message(FATAL_ERROR "${HEADER} opens without an example")
endif()
string(REPLACE "<semicolon>" ";" body "${body}")
string(REPLACE "<open>" "[" body "${body}")
string(REPLACE "<close>" "]" body "${body}")
file(WRITE ${OUTPUT}
"#include \"quandrel/${NAME}.h\"

#include <cmath>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

void RunExampleOf_${NAME}();

void RunExampleOf_${NAME}() {
${body}}
")
