# Runs a program that has to end well and to say something: COMMAND, which is a list, and SAID, an expression.
list(REMOVE_ITEM COMMAND "") # no emulator
execute_process(COMMAND ${COMMAND} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
message("${output}")
if(NOT result EQUAL 0)
    message(FATAL_ERROR "It ended with ${result}.")
elseif(NOT output MATCHES "${SAID}")
    message(FATAL_ERROR "It did not say \"${SAID}\".")
endif()
