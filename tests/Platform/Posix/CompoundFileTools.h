#pragma once

#include "Platform/StructuredStorage.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Documents are told by lines of text, parents first: `storage <path>` and
/// `stream <path> <size> <number>`, where the number says what the contents are; in a listing it is
/// their CRC-32.
using DocumentLines = std::vector<std::string>;

/// The contents that a number stands for.
std::string StreamContents(std::size_t size, unsigned number);

/// Fills a document.
void Fill(Platform::Storage& root, const DocumentLines& lines);

/// The listing of a document, depth first, in the order of the storages. What can't be read
/// has `!` in the place of size and CRC-32.
DocumentLines List(Platform::Storage& root);

/// The listing that a document filled with the lines should have, sorted.
DocumentLines SortedListingOf(const DocumentLines& lines);

DocumentLines Sorted(DocumentLines lines);

/// The bytes of the file that a document makes.
std::string FileOf(const DocumentLines& lines);

/// A block with the bytes and nothing behind them.
std::unique_ptr<Platform::MemoryBlock> BlockOf(std::string_view bytes);

/// The status of opening the bytes as a document.
Platform::StorageStatus StatusOf(std::string_view bytes);

/// The listing of a file by a reader that has nothing in common with ours; nothing, with a
/// failure of the test, if it finds anything wrong.
std::optional<DocumentLines> CheckedListing(const std::wstring& path);

/// Has a writer that has nothing in common with ours make a file.
void WriteByOther(const std::wstring& path, const DocumentLines& lines, const std::string& options);
