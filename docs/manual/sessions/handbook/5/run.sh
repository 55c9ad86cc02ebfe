tavidoc-site build site.toml -o site
tavidoc-site check --strict
