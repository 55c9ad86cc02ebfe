echo "# The kettle" > kettle.md
tavidoc-site build kettle.md -o site
