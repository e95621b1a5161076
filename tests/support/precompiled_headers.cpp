// Compiled for the headers that all test programs have in common; see quindle_add_test.
