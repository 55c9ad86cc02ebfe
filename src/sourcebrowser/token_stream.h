#pragma once

#include "sourcebrowser/c_scanner.h"

#include <vector>

namespace tavidoc {

/// The tokens of one header as the parser reads them: one at a time, with tokens that can be given back and
/// groups that can be skipped. It follows the conditionals: every branch begins with the braces that were open
/// before the conditional, and after it the braces are those at the end of its first branch. Every function
/// stops at the end of input.
class SourceBrowserTokenStream
{
public:
    using Token = SourceBrowserTokenRecord;

    /// The parser as the stream sees it. It is informed of each conditional, wherever the stream meets one.
    class Owner
    {
    public:
        virtual ~Owner() = default;
        virtual void conditionalBegins() = 0;
        /// Another branch of the innermost conditional begins.
        virtual void branchBegins() = 0;
        virtual void conditionalEnds() = 0;
        /// Whether the innermost conditional began inside the declaration being read.
        [[nodiscard]] virtual bool isConditionalInside() const = 0;
        /// Whether the braces being skipped belong to a declaration at the left margin of the file, so that another
        /// declaration there ends them.
        [[nodiscard]] virtual bool mayLoseBrace() const = 0;
    };

    /// Borrows both. \a owner may not use the stream inside its functions.
    SourceBrowserTokenStream(SourceBrowserCScanner &scanner, Owner &owner) : m_scanner(scanner), m_owner(owner) {}

    /// The next token that is not part of a compiler extension.
    Token next();
    /// The next token, without consuming it.
    [[nodiscard]] Token peek();
    /// Whether the next token is \a code and directly follows the last one.
    [[nodiscard]] bool isFollowedBy(int code);
    /// Makes \a token the next one, before those given back earlier.
    void giveBack(const Token &token) { m_given.push_back(token); }
    /// Invalidates the texts of the tokens read so far, unless some of them were given back.
    void releaseLines();

    /// Skips to the closer of \a opener, which was read last. A group in parentheses or square brackets that is
    /// never closed ends before a ";".
    void skipGroup(const Token &opener);
    /// Skips to the next ")".
    void skipParenthesis();
    /// Skips to the next \a code outside groups. Stops before a "}".
    void skipUntil(int code);
    /// Skips to the ">" of a "<" that was read last. False if something else ends it.
    bool skipAngles();
    /// After a "," in a value, skips to the ">" that shows that the "," separates template arguments. Consumes
    /// nothing and returns false if there is no such ">".
    bool skipToAngle();
    /// Skips the expression after "requires": names and groups, joined by "&&" and "||".
    void skipConstraint();

    /// Follows \a token if it is a conditional. Who reads a conditional by next() calls this.
    void noteConditional(const Token &token);
    /// Skips the other branches of the innermost conditional and its end.
    void skipBranches();
    /// Skips the braces that the first branch of a conditional, which has just ended, left open.
    void skipReopenedBraces();

private:
    /// A conditional that is open.
    struct Conditional
    {
        int depth;           ///< m_depth at its beginning
        int firstDepth = -1; ///< m_depth at the end of its first branch; -1 in the first branch
    };

    /// The next token, compiler extensions included.
    Token nextAny() { return m_given.empty() ? m_scanner.read() : takeGiven(); }
    Token takeGiven();
    void skipBraces(int depth);
    [[nodiscard]] bool endsLostBody(const Token &token) const;
    void skipRequirements();

    SourceBrowserCScanner &m_scanner;
    Owner &m_owner;
    std::vector<Token> m_given; ///< the next one last
    std::vector<Conditional> m_conditionals;
    int m_depth = 0;               ///< of the braces being skipped
    bool m_bodyMayBeStray = false; ///< a conditional without further branches opened braces and left them open
};

} // namespace tavidoc
