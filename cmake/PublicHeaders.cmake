# The headers that are installed: those that the manual documents, and what they include.
set(TAVIDOC_PUBLIC_HEADERS
    # Making pages
    docgen/doc_gen.h pages/output_record.h reading/macro_context.h reading/message.h base/path.h base/hexception.h
    # Reading declarations
    sourcebrowser/c_parser.h sourcebrowser/line_iterator.h sourcebrowser/events.h sourcebrowser/model.h
    sourcebrowser/object.h sourcebrowser/members.h sourcebrowser/container.h sourcebrowser/line_statistics.h
    # Included by c_parser.h
    sourcebrowser/c_scanner.h sourcebrowser/declarators.h sourcebrowser/pending_comment.h
    sourcebrowser/pending_declaration.h sourcebrowser/tokens.h
    # Colouring listings
    codeedit/listing.h codeedit/lexer_factory.h codeedit/parser.h codeedit/styled_line.h codeedit/code_style.h)
