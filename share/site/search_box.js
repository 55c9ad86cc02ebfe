// The search field of each page, a combobox with a list of results, and the list of the page of results.
"use strict";
(() => {
  const {search, terms, word, load, open, base} = tavidocSearch;
  const byId = id => document.getElementById(id);

  // Adds an element with a text; what the pattern matches is marked.
  const append = (parent, name, text = "", pattern) => {
    const element = document.createElement(name);
    if (text)
      text.split(pattern).forEach((piece, i) => i % 2 ? append(element, "mark", piece) : element.append(piece));
    parent.append(element);
    return element;
  };

  const hits = query => {
    const words = terms(query, word).sort((a, b) => b.length - a.length);
    return new RegExp(`(${words.join("|") || "$^"})`, "giu");
  };

  // An excerpt is loaded when its row is shown. Its line is there before, so that nothing moves.
  const addExcerpt = async (link, number, pattern) => {
    const line = append(link, "span", "\u00a0");
    line.className = "excerpt";
    const text = (await load("x" + (number >> 5)))?.[number & 31] ?? "";
    const start = Math.max(0, text.search(pattern) - 40);
    if (!text)
      return;
    line.remove();
    append(link, "span", (start ? "\u2026" : "") + text.slice(start, start + 200), pattern).className = "excerpt";
  };

  const addRow = (list, {name, kind, where, address, text}, pattern) => {
    const item = append(list, "li"), link = append(item, "a");
    link.href = base + address;
    append(link, "b", name, pattern);
    append(link, "small", [kind, where].filter(part => part).join(" \u00b7 "));
    addExcerpt(link, text, pattern);
  };

  // Returns a function that fills the list with the results of a query; `changed` is called whenever some came.
  const filler = (list, status, limit, changed) => {
    let latest;
    return async query => {
      const mine = latest = {}, pattern = hits(query);
      let isNew = true;
      // The results of the query before stay until there are others.
      const say = text => {
        if (isNew)
          list.replaceChildren();
        isNew = false;
        status.textContent = text;
      };
      await search(query, limit, (rows, isNearest) => {
        if (mine !== latest)
          return;
        say(isNearest ? "Nothing found. The nearest name:" : "");
        rows.forEach(row => addRow(list, row, pattern));
        changed();
      });
      if (mine !== latest || !isNew)
        return;
      say(query.trim() && "Nothing found.");
      changed();
    };
  };

  const pageList = byId("site-search-page");
  if (pageList) {
    const query = new URLSearchParams(location.search).get("q") ?? "";
    byId("site-search").value = query;
    filler(pageList, byId("site-search-status"), 60, () => {})(query);
  }

  const form = byId("site-search-form"), input = byId("site-search"), list = byId("site-search-results");
  const status = append(form, "p");
  list.before(status);
  let active = -1, before;
  status.setAttribute("role", "status");
  status.hidden = true;
  list.setAttribute("role", "listbox");
  list.setAttribute("aria-label", "Results");
  for (const [name, value] of Object.entries({role: "combobox", "aria-autocomplete": "list", "aria-controls": list.id}))
    input.setAttribute(name, value);

  const show = isOpen => {
    list.hidden = !isOpen || !list.children.length;
    status.hidden = !isOpen || !status.textContent;
    input.setAttribute("aria-expanded", !list.hidden);
    if (list.hidden)
      select(-1);
  };

  const select = index => {
    active = index;
    input.removeAttribute("aria-activedescendant");
    [...list.children].forEach((item, i) => {
      item.setAttribute("aria-selected", i === index);
      if (i === index) {
        input.setAttribute("aria-activedescendant", item.id);
        item.scrollIntoView({block: "nearest"});
      }
    });
  };

  const fill = filler(list, status, 12, () => {
    [...list.children].forEach((item, i) => {
      item.id = "site-search-result-" + i;
      item.setAttribute("role", "option");
      item.firstChild.tabIndex = -1;
    });
    show(document.activeElement === input);
    select(Math.min(active, list.children.length - 1));
  });

  const keys = {
    ArrowDown: () => select((active + 2) % (list.children.length + 1) - 1),
    ArrowUp: () => select((active + 1 + list.children.length) % (list.children.length + 1) - 1),
    Enter: () => list.children[active].firstChild.click(),
    Escape() {
      if (!list.hidden || !status.hidden)
        return show(false);
      input.value = "";
      (before ?? document.body).focus();
      input.blur();
    },
  };

  show(false);
  input.addEventListener("focus", () => { open(); show(input.value); });
  input.addEventListener("input", () => { active = -1; fill(input.value); });
  input.addEventListener("keydown", event => {
    const needsList = event.key !== "Escape", isReady = !list.hidden && (event.key !== "Enter" || active >= 0);
    if (event.isComposing || !Object.hasOwn(keys, event.key) || needsList && !isReady)
      return;
    event.preventDefault();
    keys[event.key]();
  });
  form.addEventListener("focusout", event => form.contains(event.relatedTarget) || show(false));
  list.addEventListener("mousedown", event => event.preventDefault()); // the field keeps the focus
  document.addEventListener("keydown", event => {
    const isKey = event.key === "/" && !event.ctrlKey && !event.metaKey && !event.altKey ||
      event.key.toLowerCase() === "k" && (event.ctrlKey || event.metaKey) && !event.altKey && !event.shiftKey;
    if (!isKey || event.target.closest?.("input, textarea, select, [contenteditable]"))
      return;
    event.preventDefault();
    before = document.activeElement;
    input.focus();
    input.select();
  });
})();
