#pragma once

#include "OakfenCore/LibraryIndex/LibraryIndex.h"
#include "OakfenCore/Models/Library.h"

namespace oakfen::fuzz {

/// The text of the document reads as an equal one, which has the same text.
void requireReadableCopy(const Library& library);

/// What no edit may break: ids are unique, transfers have both legs in step, split entries have the
/// sum of their lines, and every amount is a number.
void requireSound(const Library& library);

/// The balances of sound documents are what their entries add up to.
void requireBalanced(const LibraryIndex& index);

/// Builds the index of any document and puts every question to it; no answer may fail.
void askEverything(const Library& library);

} // namespace oakfen::fuzz
