tavidoc-site build --strict tray.h -o site
