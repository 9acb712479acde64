# Fails unless the file README holds the whole text of the file EXAMPLE.
file(READ ${README} readme)
file(READ ${EXAMPLE} example)
string(FIND "${readme}" "${example}" position)
if(position EQUAL -1)
    message(FATAL_ERROR "${README} does not show the example of ${EXAMPLE} as it is")
endif()
