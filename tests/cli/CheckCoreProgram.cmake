# cmake -DPROGRAM=<pugilforge-cli-core> -P CheckCoreProgram.cmake
# The program of the commands that need only Qt Core must not load Qt's GUI
# library: loading it is most of a command's start.
cmake_policy(VERSION 3.21)
execute_process(COMMAND ldd ${PROGRAM} OUTPUT_VARIABLE linked RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "ldd could not read ${PROGRAM}")
endif()
if(linked MATCHES "libQt6Gui|libQt6Widgets")
  message(FATAL_ERROR "${PROGRAM} loads Qt's GUI library:\n${linked}")
endif()
message(STATUS "${PROGRAM}: no Qt GUI library")
