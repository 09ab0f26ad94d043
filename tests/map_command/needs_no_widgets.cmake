# Fails unless PROGRAM loads Qt Gui and does not load Qt Widgets. READELF lists the libraries that it names.
execute_process(COMMAND ${READELF} --dynamic ${PROGRAM} OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "NEEDED[^\n]*" needed "${dynamic}")
if(NOT needed MATCHES "libQt6Gui")
  message(FATAL_ERROR "no Qt Gui among the libraries: ${needed}")
endif()
if(needed MATCHES "libQt6Widgets")
  message(FATAL_ERROR "Qt Widgets is among the libraries: ${needed}")
endif()
