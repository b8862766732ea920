#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Units' numbers by the names that a user reads, and back. The names are texts of the
/// program's language, so a name of another language isn't found.
///
/// Cheap to make; callers make one for each use.
class CEnumEngine
{
public:
    /// Which units are meant. Any other kind has none.
    static constexpr std::int32_t LinearKind = 7;
    static constexpr std::int32_t AngularKind = 8;

    /// What is stored as the number of a name that isn't found.
    static constexpr std::uint32_t NotFound = UINT32_MAX;

    CEnumEngine();
    virtual ~CEnumEngine();
    CEnumEngine(const CEnumEngine&) = delete;
    CEnumEngine& operator=(const CEnumEngine&) = delete;

    /// Looks for the unit with exactly this name. `key` takes its number, or `NotFound` with
    /// the result false. An empty name is found at once and leaves `key` as it was.
    bool GetEnumFromText(std::int32_t kind, std::wstring text, std::uint32_t* key) const;

    /// The number of the text that names a unit; 0 for a unit that there isn't, which counts
    /// as one from then on. False, with nothing stored, for a kind without units.
    bool GetResourceId(std::int32_t kind, std::uint32_t key, std::uint32_t* resourceId);

    /// The name of a unit; empty for one that there isn't. False, with the text emptied, for
    /// a kind without units; kind 0 leaves the text as it was.
    bool GetTextFromEnum(std::int32_t kind, std::uint32_t key, std::wstring& text);

    /// A value with up to ten decimals. No unit is named behind it. True for kind 1 and a
    /// key that isn't `NotFound`; the text is filled in all cases.
    bool FormatValue(std::int32_t kind, double value, std::uint32_t key, std::wstring& text) const;

    /// The numbers of a kind's units from the smallest unit to the largest, as lists show them.
    static std::vector<std::uint32_t> KeysBySize(std::int32_t kind);

    /// The numbers of a kind's units in the order in which names are compared: of two units
    /// with the same name the earlier one is found.
    std::vector<std::uint32_t> KeysInSearchOrder(std::int32_t kind) const;

private:
    /// The text numbers of units by unit number. A table of buckets, since the order in
    /// which it is walked decides between equal names.
    class Map
    {
    public:
        struct Entry
        {
            std::uint32_t key;
            std::uint32_t resourceId;
            std::optional<std::size_t> next; ///< The entry of the bucket that was added before.
        };

        /// The text number of a key. A key that isn't there is added with the number 0.
        std::uint32_t& operator[](std::uint32_t key);

        /// Calls `visit` with each entry, bucket by bucket and the newest of a bucket first,
        /// until it gives true. True if it did.
        template <typename Visit>
        bool Walk(Visit&& visit) const;

    private:
        static constexpr std::size_t BucketCount = 17;

        static std::size_t BucketOf(std::uint32_t key);

        std::array<std::optional<std::size_t>, BucketCount> m_buckets;
        std::vector<Entry> m_entries;
    };

    /// The map of a kind; null for one without units.
    template <typename Engine>
    static auto* MapOf(Engine& engine, std::int32_t kind);

    Map m_linear;
    Map m_angular;
};
