// Numbers as printf writes them.

#include "writer/Numbers.h"

#include <charconv>

char* PutInt(char* p, std::int32_t iValue) {
    return std::to_chars(p, p + LONGEST_INT, iValue).ptr;
}

char* PutReal(char* p, double dValue) {
    return std::to_chars(p, p + LONGEST_REAL, dValue, std::chars_format::general, 6).ptr;
}
