# The small host of the guide really runs, and puts out what the guide says.
file(READ ${SOURCE}/docs/embedding-output.txt expected)
set(ENV{OSTRAND_REGISTRY} ${REGISTRY})
execute_process(COMMAND ${PROGRAM} ${LIBRARY} ${SOURCE}/data/devices/hartBlade.xml
                OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE result)
if(NOT result EQUAL 0 OR NOT errors STREQUAL "" OR NOT output STREQUAL expected)
  message(FATAL_ERROR "ended with ${result}\n${errors}\n--- docs/embedding-output.txt says\n${expected}\n--- the program says\n${output}")
endif()
