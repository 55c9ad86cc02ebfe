tavidoc --help
tavidoc
