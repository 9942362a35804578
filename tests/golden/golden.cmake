# One test for each topic folder; see golden_test.cpp.
