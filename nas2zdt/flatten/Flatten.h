#pragma once
// Joins a deck with its includes as NASTRAN does.

#include "nas2zdt/flatten/DeckJoin.h"
#include "nas2zdt/flatten/LineMap.h"

/// The origins of a joined deck.
struct T_JOINED_D {
    CLineMap lines;
    T_INPUTS files; // read for it
};

/// Writes sDeck to rJoined, with each INCLUDE replaced by the deck that it names, at any depth, and closes rJoined.
/// Lines are copied unchanged. Bulk data included before BEGIN BULK is put between markers. Throws CFileException if
/// rJoined fails, or CDeckError if a deck can't be joined or more decks are opened than may be.
T_JOINED_D FlattenDeck(const std::string& sDeck, CFile& rJoined, const T_JOINRULES_D& rRules = {});
