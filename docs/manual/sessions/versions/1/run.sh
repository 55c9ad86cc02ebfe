tavidoc-site build -o site/2.0
sed -i 's/2\.0/2.1/' site.toml
tavidoc-site build -o site/2.1
