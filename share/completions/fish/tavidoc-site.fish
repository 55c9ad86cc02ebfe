# Completion of tavidoc-site for fish. Verbs, options and formats are those that the program itself lists.

# The words before the cursor, without the program.
function __tavidoc_site_words
    set -l words (commandline -opc)
    set -e words[1]
    string join \n -- $words
end

function __tavidoc_site_help
    tavidoc-site (__tavidoc_site_words)[1] --help 2>/dev/null
end

function __tavidoc_site_verbs
    tavidoc-site --help 2>/dev/null | string replace -rf '^  ([a-z]+) +(.*)' '$1\t$2'
end

function __tavidoc_site_options
    __tavidoc_site_help | string replace -rf '^ +(?:-[a-z], )?(--[a-z-]+)(?: [A-Z]+)? +(.*)' '$1\t$2'
    __tavidoc_site_help | string replace -rf '^ +(-[a-z]), --[a-z-]+(?: [A-Z]+)? +(.*)' '$1\t$2'
end

# The formats of "export": "inventory|tags"
function __tavidoc_site_formats
    test (count (__tavidoc_site_words)) -eq 1
    and __tavidoc_site_help | string replace -rf '^usage: .*\] ([a-z]+(?:\|[a-z]+)+) .*' '$1' | string split '|'
end

complete -c tavidoc-site -n 'test (count (__tavidoc_site_words)) -eq 0' -f -a '(__tavidoc_site_verbs)'
complete -c tavidoc-site -n 'string match -q -- "-*" (commandline -ct)' -a '(__tavidoc_site_options)'
complete -c tavidoc-site -n 'test -n "$(__tavidoc_site_formats)"' -f -a '(__tavidoc_site_formats)'
