tavidoc-site build --strict -o site
cat site/sitemap.xml
