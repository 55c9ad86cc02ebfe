#pragma once

#include "apiref/synopsis_layout.h"
#include "apiref/synopsis_tokens.h"
#include "sourcebrowser/model.h"

#include <QHash>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavidoc {

/// The declarations of one header as the language states them, taken from the text of the header: what the model
/// has no place for (template heads, qualifiers, enumerators with comments) and synopses that a compiler accepts.
class SynopsisSource
{
public:
    /// What distinguishes a function from others of its name, spelled as in the header, with one blank for white space.
    struct Signature
    {
        QString templateHeads; ///< on one line; empty if it is no template
        QString arguments;     ///< in parentheses, without default values
        QString qualifiers;    ///< after the arguments: "const &&"
        QString constraint;    ///< at the end, with "requires"
    };

    /// What the label before a method makes it. The labels are those of Qt.
    enum class Section : unsigned char
    {
        Plain,
        Signals, ///< "signals:", "Q_SIGNALS:", or Q_SIGNAL before the method
        Slots,   ///< "public slots:", "public Q_SLOTS:", or Q_SLOT before the method
    };

    struct Enumerator
    {
        QString name;
        QString value;        ///< as written; empty if it has none
        QString comment;      ///< after it, else before it, without delimiters
        int commentLine = -1; ///< counted from 1
    };

    /// \a text is that of the header from which \a model was read, UTF-8 with "\n" line ends. Borrows the declarations
    /// of \a model, which must stay in it.
    SynopsisSource(const QByteArray &text, const SourceBrowserModel &model);

    /// The declaration as the language states it, with its ";" unless it is the head of a class, a namespace or a macro.
    /// Several lines are joined by "\n".
    [[nodiscard]] std::string synopsis(const SourceBrowserObject &object) const;
    /// The text of the header that synopsis() states, from its first token to the one after it: to the body of a function
    /// or the members of a class. Empty if it is unknown.
    [[nodiscard]] QStringView stated(const SourceBrowserObject &object) const;
    /// Whether the declaration contains \a word, apart from template heads and what is in parentheses.
    [[nodiscard]] bool hasWord(const SourceBrowserObject &object, QStringView word) const;
    [[nodiscard]] Signature signature(const SourceBrowserMethod &function) const;
    [[nodiscard]] Section section(const SourceBrowserObject &method) const { return m_sections.value(&method); }
    /// The functions that the class \a container declares as its friends, in the order of the header.
    [[nodiscard]] std::vector<const SourceBrowserObject *> friends(const SourceBrowserContainer &container) const
    {
        return m_friends.value(&container);
    }
    [[nodiscard]] std::vector<Enumerator> enumerators(const SourceBrowserEnum &enumeration) const;

    /// The text of the header.
    [[nodiscard]] const QString &text() const { return m_tokens.text(); }

    /// Gives the declarations of the model the comments that follow them.
    void attachTrailingComments() const;

private:
    using Tokens = SynopsisLayout::Tokens;

    /// Where a declaration is. The values are indices of tokens.
    struct Place
    {
        SourceBrowserObject *object;
        std::size_t begin;
        std::size_t name; ///< s_none if the declarator has none
        std::size_t end;  ///< of the token after it

        [[nodiscard]] bool isNamed() const { return name != s_none; }
    };

    /// The places of one declaration, in order: a type that it defines and its declarators.
    using Group = std::span<const Place>;

    static constexpr std::size_t s_none = static_cast<std::size_t>(-1);

    // Finding the declarations: synopsis_source.cpp.
    void addPlace(SourceBrowserObject &object);
    [[nodiscard]] const Place *placeOf(const SourceBrowserObject &object) const;
    [[nodiscard]] Group groupOf(const Place &place) const;
    [[nodiscard]] std::size_t extendedBegin(std::size_t begin) const;
    [[nodiscard]] std::size_t endFrom(std::size_t begin) const;
    [[nodiscard]] bool beginsRequirements(std::size_t index) const;
    [[nodiscard]] bool isToken(std::size_t index, char16_t unit) const;
    [[nodiscard]] std::size_t matchOf(std::size_t index) const;

    // What is around them: synopsis_sections.cpp.
    void readSections();
    [[nodiscard]] Section sectionOf(const Place &place, Section labelled) const;
    [[nodiscard]] std::optional<Section> labelAt(std::size_t index) const;

    // Stating them: synopsis_statements.cpp.
    [[nodiscard]] QString container(const Place &place) const;
    [[nodiscard]] QString declarator(const Place &place) const;
    [[nodiscard]] QString functionOrObject(const Place &place, Tokens tokens) const;
    [[nodiscard]] QString conceptText(const Place &place) const;
    [[nodiscard]] qsizetype specifiersBegin(const Place &place) const;
    [[nodiscard]] bool isInTypedef(const Place &place) const;
    [[nodiscard]] bool isPlainData(const SourceBrowserContainer &container, const Place &place) const;
    [[nodiscard]] std::size_t endOfStated(const Place &place) const;
    [[nodiscard]] QString definedType(const Place &place, char16_t separator) const;
    [[nodiscard]] Tokens tokens(std::size_t begin, std::size_t end) const;
    [[nodiscard]] Tokens specifiers(const Place &first, Group group, std::size_t end) const;
    [[nodiscard]] std::size_t classKey(std::size_t begin, std::size_t end) const;
    [[nodiscard]] std::size_t tagOf(std::size_t key, std::size_t brace) const;
    [[nodiscard]] std::size_t declaratorBegin(const Place &place, std::size_t from) const;

    // Signatures: synopsis_signature.cpp.
    [[nodiscard]] static QString argumentsText(SynopsisTokens::Range list);
    void takeQualifiers(std::size_t at, std::size_t end, Signature &signature) const;

    // Comments and enumerators: synopsis_comments.cpp.
    [[nodiscard]] const Place *placeBefore(std::size_t token, const QHash<std::size_t, const Place *> &byEnd) const;
    [[nodiscard]] Enumerator enumerator(std::size_t begin, std::size_t end) const;
    [[nodiscard]] std::vector<std::pair<std::size_t, std::size_t>>
    enumeratorRanges(const SourceBrowserEnum &enumeration) const;
    void takeComments(std::size_t begin, std::size_t end, Enumerator &enumerator) const;

    SynopsisTokens m_tokens;
    std::vector<Place> m_places; ///< by begin and name
    QHash<const SourceBrowserObject *, std::size_t> m_placeOf;
    std::vector<SourceBrowserObject *> m_macros;
    QHash<const SourceBrowserObject *, Section> m_sections; ///< of signals and slots
    QHash<const SourceBrowserContainer *, std::vector<const SourceBrowserObject *>> m_friends;
};

} // namespace tavidoc
