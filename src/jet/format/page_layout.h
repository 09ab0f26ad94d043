// Offsets, flags and limits of all pages but those of table definitions.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zerbal::jet {

/// The format of 1997, and that of 2000 to 2003.
enum class Format { kJet3, kJet4 };

constexpr std::size_t PageSizeOf(Format format) {
  return format == Format::kJet3 ? 2048 : 4096;
}

inline constexpr std::uint32_t kMaxPageCount = 1u << 24;           ///< page numbers have three bytes
inline constexpr std::size_t kMaxFileSize = std::size_t{2} << 30;  ///< bytes; what the format allows

/// The first byte of a page. The second one is always 1.
enum class PageKind : std::uint8_t {
  kHeader = 0,
  kData = 1,
  kTableDefinition = 2,
  kIndexNode = 3,
  kIndexLeaf = 4,
  kUsageMap = 5,
};

// Offsets of fields that several kinds of pages have.
inline constexpr std::size_t kPageKindAt = 0;
inline constexpr std::size_t kFreeBytesAt = 2;  ///< 16 bits; on data, index and definition pages
inline constexpr std::size_t kOwnerAt = 4;  ///< 32 bits: the table's definition page; on data and index pages

constexpr bool IsOfKind(const std::uint8_t* page, PageKind kind) {
  return page[kPageKindAt] == static_cast<std::uint8_t>(kind);
}

/// Names one row of the file.
struct RecordPointer {
  std::uint32_t page = 0;
  std::uint8_t row = 0;

  /// As stored in tables and rows: the row in the low byte.
  static constexpr RecordPointer FromU32(std::uint32_t value) {
    return {value >> 8, static_cast<std::uint8_t>(value & 0xFF)};
  }
  constexpr std::uint32_t ToU32() const { return page << 8 | row; }
  bool operator==(const RecordPointer&) const = default;
};

// Data pages, which hold the rows of tables, pieces of long values, and usage maps; and the layout of a row.

/// Offsets on a data page. Rows fill it from its end downwards, in the order of the directory.
struct DataPageLayout {
  std::size_t rowCount;   ///< 16 bits
  std::size_t directory;  ///< 16 bits per row: the offset of its first byte, and flags
};

constexpr DataPageLayout DataPageLayoutOf(Format format) {
  return format == Format::kJet3 ? DataPageLayout{0x08, 0x0A} : DataPageLayout{0x0C, 0x0E};
}

inline constexpr std::size_t kDirectoryEntrySize = 2;  ///< bytes
inline constexpr std::uint16_t kRowStartMask = 0x1FFF;
// Flags of a directory entry. A deleted row has both.
inline constexpr std::uint16_t kRowMoved = 0x4000;   ///< the row is a RecordPointer to where its bytes are
inline constexpr std::uint16_t kRowHidden = 0x8000;  ///< the row is the target of such a pointer, or deleted

inline constexpr std::uint32_t kLongValueOwner = 0x4C41564C;  ///< "LVAL"; owns all pages of long values

/// Bytes of the number of columns, with which a row begins.
constexpr std::size_t RowHeadSize(Format format) {
  return format == Format::kJet3 ? 1 : 2;
}
/// Bytes of the null mask, with which a row ends: one bit per column, from the lowest bit of the first byte.
constexpr std::size_t NullMaskSize(std::size_t columnCount) {
  return (columnCount + 7) / 8;
}

// Usage maps: sets of page numbers. A map is a row of a data page and begins with its kind.

enum class UsageMapKind : std::uint8_t {
  kInline = 0,     ///< a bitmap in the row, for the pages from a given one on
  kReference = 1,  ///< the numbers of usage map pages, each with the bitmap of a fixed range; 0 = none of it
};

inline constexpr std::size_t kInlineStartAt = 1;    ///< 32 bits: the page of the bitmap's first bit
inline constexpr std::size_t kInlineBitmapAt = 5;   ///< to the end of the row
inline constexpr std::size_t kMapPagesAt = 1;       ///< 32 bits each
inline constexpr std::size_t kMapPageSize = 4;      ///< bytes of each
inline constexpr std::size_t kMapPageBitmapAt = 4;  ///< on a usage map page, up to its end

/// How many pages one usage map page covers.
constexpr std::size_t PagesPerMapPage(Format format) {
  return (PageSizeOf(format) - kMapPageBitmapAt) * 8;
}

// Memo and OLE values. The row holds a descriptor: length and kind in 32 bits, a record pointer, 32 zero
// bits.

/// The two highest bits of the descriptor's first number.
enum class LongValueKind : std::uint8_t {
  kChain = 0,   ///< in rows of other pages; each begins with the record pointer of the next, 0 in the last
  kRow = 1,     ///< in one row of another page
  kInline = 2,  ///< in the row itself, after the descriptor
};
inline constexpr unsigned kLongValueKindShift = 30;
inline constexpr std::uint32_t kMaxLongValue = 0x3FFFFFFF;  ///< bytes; the bits of the length

inline constexpr std::size_t kDescriptorSize = 12;      ///< bytes
inline constexpr std::size_t kDescriptorPointerAt = 4;  ///< the first, or only, piece; 0 for inline values
inline constexpr std::size_t kChainPointerSize = 4;     ///< bytes at the beginning of each piece of a chain

// The catalog, a table that lists all objects of a file, and the other system tables.

// The system tables; their definitions are on the pages from kCatalogPage on.
inline constexpr std::array<std::string_view, 4> kSystemTableNames = {"MSysObjects", "MSysACEs",
                                                                      "MSysQueries", "MSysRelationships"};
inline constexpr std::string_view kCatalogName = kSystemTableNames[0];
inline constexpr std::uint32_t kCatalogPage = 2;

// Columns of the catalog.
inline constexpr std::string_view kObjectId = "Id";      ///< Long; low three bytes: a table's definition page
inline constexpr std::string_view kObjectName = "Name";  ///< Text
inline constexpr std::string_view kObjectType = "Type";  ///< Integer
inline constexpr std::string_view kObjectFlags = "Flags";  ///< Long

inline constexpr std::int16_t kTableObject = 1;  ///< among the object types: a table of this file
// Object flags. A table with one of them belongs to the engine.
inline constexpr std::uint32_t kSystemObject = 0x80000000;
inline constexpr std::uint32_t kHiddenSystemObject = 0x00000002;

// Pages of an index tree. An entry is the key, then the page and row of its record, then, on nodes, the page
// of the child; these numbers are big-endian, so that whole entries can be compared as byte strings.

struct IndexPageLayout {
  unsigned links;    ///< 32 bits each: see below
  unsigned prefix;   ///< how many bytes all entries share with the first; 8 bits in 1997, else 16
  unsigned mask;     ///< bit n is set where an entry ends at byte n of the entries
  unsigned entries;  ///< up to the end of the page
};

constexpr IndexPageLayout IndexPageLayoutOf(Format format) {
  return format == Format::kJet3 ? IndexPageLayout{0x08, 0x14, 0x16, 0xF8}
                                 : IndexPageLayout{0x0C, 0x18, 0x1B, 0x1E0};
}

// Offsets from `links`.
inline constexpr std::size_t kPreviousPage = 0;
inline constexpr std::size_t kNextPage = 4;
inline constexpr std::size_t kTailChild = 8;  ///< the child after the last entry; 0 = none

inline constexpr std::size_t kIndexLevelAt = 0x1A;  ///< 8 bits, 2000 format: 0 for leaves

inline constexpr std::size_t kEntryPointerSize = 4;  ///< bytes of page and row
inline constexpr std::size_t kEntryChildSize = 4;    ///< bytes of the child's page

/// A record pointer or a child's page as an entry holds it.
constexpr std::array<std::uint8_t, 4> BigEndian(std::uint32_t value) {
  return {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16 & 0xFF),
          static_cast<std::uint8_t>(value >> 8 & 0xFF), static_cast<std::uint8_t>(value & 0xFF)};
}

// Page 0, the header of a file.

/// The rule that orders texts in an index.
struct SortOrder {
  std::uint16_t language = 0;
  std::uint8_t version = 0;
  bool operator==(const SortOrder&) const = default;
};

/// The only order whose keys are known.
inline constexpr SortOrder kGeneralSortOrder{0x0409, 0};

inline constexpr std::size_t kSignatureAt = 0x04;
inline constexpr std::string_view kSignature("Standard Jet DB\0", 16);
inline constexpr std::string_view kNewerSignature("Standard ACE DB\0", 16);  ///< of formats after 2003
inline constexpr std::size_t kVersionAt = 0x14;                              ///< 8 bits: 0 or 1, as in Format

// Offsets in the masked part.
inline constexpr std::size_t kSystemPagesAt = 0x18;       ///< 32 bits each
inline constexpr std::size_t kJet3SortLanguageAt = 0x3A;  ///< 16 bits
inline constexpr std::size_t kCodePageAt = 0x3C;          ///< 16 bits: of every text in a 1997 file; 0 = 1252
inline constexpr std::size_t kDatabaseKeyAt = 0x3E;       ///< 32 bits; not 0 where the pages are encoded
inline constexpr std::size_t kPasswordAt = 0x42;          ///< forty bytes
inline constexpr std::size_t kSortLanguageAt = 0x6E;      ///< 16 bits
inline constexpr std::size_t kSortVersionAt = 0x71;       ///< 8 bits
inline constexpr std::size_t kCreationDateAt = 0x72;      ///< eight bytes

inline constexpr std::size_t kHeaderMaskStart = 0x18;
/// XORed over the header from kHeaderMaskStart on; the same in every file.
inline constexpr std::array<std::uint8_t, 128> kHeaderMask = {
    0xB5, 0x6F, 0x03, 0x62, 0x61, 0x08, 0xC2, 0x55, 0xEB, 0xA9, 0x67, 0x72, 0x43, 0x3F, 0x00, 0x9C,
    0x7A, 0x9F, 0x90, 0xFF, 0x80, 0x9A, 0x31, 0xC5, 0x79, 0xBA, 0xED, 0x30, 0xBC, 0xDF, 0xCC, 0x9D,
    0x63, 0xD9, 0xE4, 0xC3, 0x7B, 0x42, 0xFB, 0x8A, 0xBC, 0x4E, 0x86, 0xFB, 0xEC, 0x37, 0x5D, 0x44,
    0x9C, 0xFA, 0xC6, 0x5E, 0x28, 0xE6, 0x13, 0xB6, 0x8A, 0x60, 0x54, 0x94, 0x7B, 0x36, 0xF5, 0x72,
    0xDF, 0xB1, 0x77, 0xF4, 0x13, 0x43, 0xCF, 0xAF, 0xB1, 0x33, 0x34, 0x61, 0x79, 0x5B, 0x92, 0xB5,
    0x7C, 0x2A, 0x05, 0xF1, 0x7C, 0x99, 0x01, 0x1B, 0x98, 0xFD, 0x12, 0x4F, 0x4A, 0x94, 0x6C, 0x3E,
    0x60, 0x26, 0x5F, 0x95, 0xF8, 0xD0, 0x89, 0x24, 0x85, 0x67, 0xC6, 0x1F, 0x27, 0x44, 0xD2, 0xEE,
    0xCF, 0x65, 0xED, 0xFF, 0x07, 0xC7, 0x46, 0xA1, 0x78, 0x16, 0x0C, 0xED, 0xE9, 0x2D, 0x62, 0xD4};

/// Dates are stored as days since day zero, with the time of day as fraction.
inline constexpr std::chrono::sys_days kDayZero{std::chrono::December / 30 / 1899};

}  // namespace zerbal::jet
