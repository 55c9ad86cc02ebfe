#pragma once

#include "sourcebrowser/object.h"

/// What a listener learns while a header is read. Every operation does nothing unless it is
/// overridden. All lines are counted from 0.
class SourceBrowserEventInterface
{
public:
    virtual ~SourceBrowserEventInterface() = default;

    /// A directive with its continuation lines, or "#region NAME" or "#endregion" for a region
    /// comment. \a count is the number of directive lines so far.
    virtual void preprocessorLine(const QString &text, int line, int count);
    /// A line comment that begins with the fix-me word \a word.
    virtual void fixmeComment(const QString &word, int line);
    /// A container or a function begins; what follows up to endContainer() belongs to it.
    /// A class, structure or namespace has its name as \a declaration, a function its prototype.
    /// \a further is empty.
    virtual void declareContainer(SourceBrowserObject::Phylum phylum, const QString &name, const QString &declaration,
                                  const QString &further, int line);
    virtual void endContainer();
    /// A variable or typedef.
    virtual void declareObject(SourceBrowserObject::Phylum phylum, const QString &name, const QString &declaration,
                               int line);
    /// An access label was read.
    virtual void visibilityChange(SourceBrowserObject::Access access, int line);
};
