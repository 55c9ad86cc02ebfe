tavidoc-site build --strict states.h -o site
