#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/document_run.h"

/// Profile files: named sections, each with named keys and a line of text for each, that Windows' own
/// profile functions read as we do. Names of sections and keys ignore case; of a section or key that
/// stands twice the first counts.
///
/// Bytes: Windows-1252 when every character fits and the bytes could not be mistaken for UTF-8, else
/// UTF-16 with a byte order mark. When reading, a byte order mark decides; without one, valid UTF-8 with a
/// byte over 127 is UTF-8, anything else Windows-1252. CR LF ends a line, LF alone is accepted. A value
/// with blanks or a pair of quotes around it is written in quotes, which reading takes off again.
namespace platform {

/// A parsed profile file. Values are looked up without copying. Keys that count up line by line, as those of
/// samples do, cost the same however long a section is, whatever the order of the lookups.
class ProfileDocument {
  public:
    class Section {
      public:
        const std::string& name() const { return name_; }
        std::size_t size() const { return entries_.size(); }
        /// In file order, counted from 0.
        std::string_view key(std::size_t index) const;
        std::string_view value(std::size_t index) const;
        /// Empty when there is no such key.
        std::optional<std::string_view> find(std::string_view key) const;
        std::optional<std::string_view> find(std::int32_t key) const;

      private:
        friend class ProfileDocument;
        /// Where a value stands in the text; its key stands before it in the line. A long file has millions:
        /// what it takes to keep them is what it takes to read it.
        struct Entry {
            std::uint32_t start, length;
        };
        using Index = std::unordered_map<std::string, std::size_t>;

        std::optional<std::size_t> position(std::string_view key) const;
        std::size_t outsideRun(std::size_t index) const;
        bool hasRepetitions() const;
        void removeRepetitions();
        void finish(const profile::KeyRun& longest);

        std::string name_;
        const std::string* text_ = nullptr;
        std::vector<Entry> entries_;
        profile::KeyRun run_;                  // the longest; its lines are found by their number
        std::shared_ptr<const Index> index_;   // of the other lines by their folded key, when there are many
    };

    /// RuntimeError fileError when the bytes are no text: a zero character, broken UTF-8 or UTF-16 behind a
    /// byte order mark, more than 4 GB.
    static ProfileDocument parse(std::string_view bytes);
    /// RuntimeError of files::read as well.
    static ProfileDocument load(std::string_view fileName);

    ProfileDocument();
    ProfileDocument(ProfileDocument&&) noexcept;
    ProfileDocument& operator=(ProfileDocument&&) noexcept;
    ~ProfileDocument();

    std::size_t sectionCount() const;
    const Section& section(std::size_t index) const;          ///< in file order, counted from 0
    const Section* findSection(std::string_view name) const;  ///< null when there is none
    std::size_t lineCount() const;

  private:
    struct Parser;
    static ProfileDocument adopt(std::string bytes);

    std::unique_ptr<std::string> text_;   // UTF-8; the entries point into it
    std::vector<Section> sections_;
    std::unordered_map<std::string, std::size_t> index_;   // by folded name
    std::size_t lines_ = 0;
    mutable std::size_t lastFound_ = 0;   // the next section asked for is mostly this one or the one behind
};

/// A profile file in the making, section after section.
class ProfileWriter {
  public:
    void section(std::string_view name);
    /// RuntimeError typeMismatch, naming section and key, when the value holds a line break or another
    /// control character (the tab excepted), or bytes that are no UTF-8.
    void set(std::string_view key, std::string_view value);
    void set(std::string_view key, std::int32_t value);
    void set(std::int32_t key, std::string_view value);
    void set(std::int32_t key, std::int32_t value);

    void reserve(std::size_t bytes) { text_.reserve(bytes); }
    /// The bytes as they stand in the file.
    std::string bytes() const;
    /// The file in one step (files::replace).
    void store(std::string_view fileName) const;

  private:
    void check(std::string_view key, std::string_view value) const;
    std::string text_;      // UTF-8 with CR LF
    bool ascii_ = true;     // so far
    std::string section_;
};

/// Reads and writes one entry per call, as the suite's programs do, but parses a file once: `write` only
/// collects.
class ProfileFile {
  public:
    explicit ProfileFile(std::string fileName) : fileName_(std::move(fileName)) {}

    /// The first call parses the file; RuntimeError of ProfileDocument::load.
    std::string_view peek(std::string_view section, std::string_view key, std::string_view whenAbsent);
    /// A section whose entries are read by the thousand; null when there is none.
    const ProfileDocument::Section* section(std::string_view name);
    /// Lines of the file: no count in it can honestly be greater.
    std::size_t lineCount();

    /// Calls for one section must follow each other.
    void write(std::string_view section, std::string_view key, std::string_view value);
    void write(std::string_view section, std::int32_t key, std::int32_t value);
    /// What was written, as a file holds it.
    std::string bytes() const { return written_.bytes(); }

  private:
    const ProfileDocument& document();
    std::string fileName_;
    std::optional<ProfileDocument> read_;
    ProfileWriter written_;
    std::string writing_;
};

}  // namespace platform
