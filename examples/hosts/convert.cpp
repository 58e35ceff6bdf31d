// A host in C++ that links the library: converts a deck of the user's choice and tells the path of the result.

#include "ConvertFile.h"

#include <iostream>
#include <vector>

int main() {
    std::vector<char> aOutput(CONVERT_PATH_SIZE);
    const std::int32_t iResult = ConvertFile2(aOutput.data(), static_cast<std::int32_t>(aOutput.size()));
    std::cout << "result: " << iResult << '\n';
    if (iResult == CONVERT_DONE) std::cout << "path: " << aOutput.data() << '\n';
    return iResult == CONVERT_FAILED ? 1 : 0;
}
