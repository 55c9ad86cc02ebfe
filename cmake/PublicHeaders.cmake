# The headers that are installed: those that the manual documents.
set(TAVIDOC_PUBLIC_HEADERS
    # Making pages
    docgen/doc_gen.h pages/output_record.h reading/macro_context.h reading/message.h base/path.h base/hexception.h
    # Reading declarations
    sourcebrowser/c_parser.h sourcebrowser/line_iterator.h sourcebrowser/events.h sourcebrowser/model.h
    sourcebrowser/object.h sourcebrowser/members.h sourcebrowser/container.h sourcebrowser/line_statistics.h
    sourcebrowser/overview_comment.h
    # Colouring listings
    codeedit/listing.h codeedit/lexer_factory.h codeedit/parser.h codeedit/styled_line.h codeedit/code_style.h)
