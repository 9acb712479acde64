#error "a header of the program, not of the library"
