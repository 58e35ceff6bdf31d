// What stands for SHA-256 where there is no library for it.

#include "nas2zdt/report/Sha256.h"

struct CSha256::T_STATE_D {};

CSha256::CSha256() = default;
CSha256::~CSha256() = default;
void CSha256::Add(std::string_view) {}

std::string CSha256::Finish() {
    return {};
}
