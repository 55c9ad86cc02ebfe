tavidoc-site export inventory tea.h -o tea.inv
tavidoc-site build --strict -o site
grep -o 'https://tea[^"]*' site/index.htm
