#pragma once
// An observer that nothing interests: tests take what they need.

#include "reader/DeckObserver.h"

class CQuietObserver : public CDeckObserver {
  public:
    void OnDeckBegin(const std::string&) override {}
    void OnDeckEnd(bool) override {}
    void OnCard(const T_DATA_D&, const T_FIELDUSE_D&, std::int32_t, std::int32_t) override {}
    void OnLoss(const T_LOSS_D&) override {}
    void OnFieldsDeleted(std::size_t, std::int32_t) override {}
    void OnBytesRead(std::uint64_t) override {}
    void OnLeft(const T_LEFT_D&) override {}
};
