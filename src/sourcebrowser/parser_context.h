#pragma once

#include "sourcebrowser/container.h"

#include <QSet>

namespace tavidoc {

/// An open pair of braces whose content is read, or the file. Chained from the inside out.
struct SourceBrowserParserContext
{
    enum class Body
    {
        File,
        Block,
        Namespace,
        Class,
        Structure ///< of a typedef, or in such a structure
    };

    Body body = Body::File;
    SourceBrowserParserContext *parent = nullptr;
    SourceBrowserContainer *container = nullptr;
    SourceBrowserObject::Access access = SourceBrowserObject::Public;         ///< of the next members
    SourceBrowserObject::Access declaredAccess = SourceBrowserObject::Public; ///< of the next members, in the language
    int depth = 0;
    int containers = 0;       ///< how many of the contexts, from the outermost to this one, are containers
    int column = 0;           ///< first column of the declaration
    int memberColumn = -1;    ///< column of the first member; -1 before it
    bool mayBeStray = false;  ///< opened in a conditional that ended without closing it
    QString scope;            ///< of the members
    QString className;        ///< the name of the constructors; empty outside classes
    QSet<QString> otherNames; ///< of constructors too: the class has these names in other branches of a conditional
    SourceBrowserObject::Phylum phylum = SourceBrowserObject::Unknown; ///< as reported in the event
    // For the declarators after the closing brace:
    QString composedType;
    SourceBrowserObject::Position begin;
    int line = 0; ///< counted from 0
    bool isTypedef = false;
    bool isStatic = false;
    bool isNamed = false;
    bool holdsRenamed = false; ///< a container in it was renamed after its members were added

    [[nodiscard]] bool isClass() const { return body == Body::Class || body == Body::Structure; }
};

/// The heads of one class in the branches of a conditional.
struct SourceBrowserBranchHeads
{
    QSet<QString> names;       ///< of the constructors
    int line = -1;             ///< of the first head without a body, counted from 0; -1 if there is none
    qsizetype declaration = 0; ///< number of the declaration that has the last head
};

/// An open conditional as the parser sees it.
struct SourceBrowserParserCondition
{
    SourceBrowserParserContext *context = nullptr;      ///< at the beginning of every branch
    SourceBrowserParserContext *firstContext = nullptr; ///< at the end of the first branch; null in that branch
    qsizetype declaration = 0;                          ///< number of the declaration that was being read
    bool isInsideDeclaration = false;
    SourceBrowserBranchHeads heads = {}; ///< of classes that its branches left open
};

} // namespace tavidoc
