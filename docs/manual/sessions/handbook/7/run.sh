tavidoc-site export inventory site.toml -o objects.inv
tavidoc-site export tags site.toml -o kettle.tag
