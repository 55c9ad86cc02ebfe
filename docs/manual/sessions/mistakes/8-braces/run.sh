tavidoc-site build timer.h -o site
