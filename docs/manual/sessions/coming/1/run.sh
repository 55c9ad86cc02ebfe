tavidoc-site build --strict timer.h -o site
