// Offline search. The index is in files that script tags load, so it also works from file://.
"use strict";
var tavidocSearch = (() => {
  const digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  const values = Object.fromEntries([...digits].map((digit, value) => [digit, value]));
  const ideograph = "[\\u3040-\\u30ff\\u3400-\\u4dbf\\u4e00-\\u9fff\\uac00-\\ud7a3\\uf900-\\ufaff\\u{20000}-\\u{3ffff}]";
  const letter = `(?:(?!${ideograph})[\\p{L}\\p{N}\\p{M}_])`;
  const word = new RegExp(`${letter}+|${ideograph}+`, "gu");
  // Ideographs; words with what joins them, a sigil, the symbol of an operator; symbols alone.
  const token = new RegExp(`${ideograph}+|[-#$\\\\@~]{0,2}${letter}+(?:(?:::~?|[.-])${letter}+)*` +
    `(?:(?<=(?<!${letter})operator) ?(?:\\(\\)|\\[\\]|[-+*/%^&|~!=<>,]{1,3})|(?:\\+\\+|#)(?!${letter}))?` +
    `|[^\\s\\p{L}\\p{N}]+?(?=[-#$\\\\@~]{0,2}${letter}|\\s|$)`, "gu");
  const base = typeof document === "object" ? document.currentScript.src.replace(/[^/]*$/, "") : "";
  const waiting = {}, files = {}, decoded = {};
  let root;

  // Called by the files of the index.
  const add = (name, data) => waiting[name]?.(data);

  // Becomes the data of a file; null if it is missing.
  const load = name => files[name] ??= new Promise(done => {
    waiting[name] = done;
    tavidocSearch.request(name, () => done(null));
  });

  const request = (name, failed) => {
    const script = document.createElement("script");
    script.src = `${base}search/${name}.js?${root?.version}`;
    script.onerror = failed;
    document.head.append(script);
  };

  let opened;
  const open = () => opened ??= load("root").then(data => {
    if (!data)
      return;
    root = data;
    for (const kind of "twb")
      root[kind] = root[kind].split("\t");
    if (root.pages <= root.block)
      load("n0");
  });

  // The forms that the index compares, as in terms.cpp.
  const fold = text => text.toUpperCase().toLowerCase().replace(/\u03c2/g, "\u03c3").slice(0, 64);
  const plain = text => text.normalize("NFD").replace(/\p{M}/gu, "").normalize("NFC");

  const pairs = text => {
    const all = [...text];
    return all.length < 2 ? all : all.slice(1).map((next, i) => all[i] + next);
  };

  // The terms to look for: a page has to have them all.
  const terms = (query, pattern = token) => {
    const found = query.match(pattern) ?? [];
    const named = found.filter(text => text.match(word));
    return (named.length ? named : found).flatMap(text => RegExp(`^${ideograph}`, "u").test(text) ?
      pairs(text) : fold(text.replace(" ", ""))).slice(0, 8);
  };

  // The index of the first text that does not come before the given one.
  const lowerBound = (texts, text) => {
    let low = 0, high = texts.length;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (texts[middle] < text)
        low = middle + 1;
      else
        high = middle;
    }
    return low;
  };

  // The number of the shard that has the text or would have it.
  const shardOf = (kind, text) => {
    const firsts = root[kind], at = lowerBound(firsts, text);
    return firsts[at] === text ? at : Math.max(0, at - 1);
  };

  // The texts of a shard and, in one of terms, their pages.
  const shard = async (kind, number) => decoded[kind + number] ??= decode(await load(kind + number) ?? "", kind === "t");

  const decode = (data, hasPages) => {
    const texts = [], pages = [], fields = data ? data.split("\t") : [];
    let text = "";
    for (let i = 0; i < fields.length; ++i) {
      texts.push(text = text.slice(0, values[fields[i][0]]) + fields[i].slice(1));
      if (hasPages)
        pages.push(fields[++i]);
    }
    return {texts, pages};
  };

  // Reads one number after the other.
  const numbers = text => {
    let at = 0;
    const next = () => {
      let number = 0, shift = 0, value;
      do {
        value = values[text[at++]];
        number |= (value & 31) << shift;
        shift += 5;
      } while (value > 31);
      return number;
    };
    next.more = () => at < text.length;
    return next;
  };

  // Lower is better. Whole names (15, 14) and titles (13); what they begin with; parts of names (12, 11); words of
  // titles, headings, briefs and bodies (10 to 1). A term is better when less of it is missing in the query.
  const rank = (weight, missing) =>
    (weight > 12 ? missing ? 3 : 15 - weight : weight > 10 ? 4 : 16 - weight) * 100 + missing;

  // The pages of all terms that begin with the text, with ranks; of a similar text only those of the text itself.
  const pagesOf = async (text, penalty = 0) => {
    const ranks = new Map();
    let names = 0;
    for (const form of new Set([text, plain(text)])) {
      for (let number = shardOf("t", form), last = number + 3; number <= last && number < root.t.length; ++number) {
        const {texts, pages} = await shard("t", number);
        let at = lowerBound(texts, form);
        for (; texts[at]?.startsWith(form) && !(penalty && texts[at] !== form); ++at) {
          for (const next = numbers(pages[at]); next.more();) {
            const head = next(), value = rank(head & 15, texts[at].length - form.length) + penalty;
            for (let left = head >> 4, page = 0; left--;) {
              page += next();
              if (!(ranks.get(page) <= value))
                ranks.set(page, value);
              names += value < 400;
            }
          }
        }
        if (at < texts.length || names > 60)
          break;
      }
    }
    return ranks;
  };

  const inAll = maps => {
    const [first, ...others] = maps.sort((a, b) => a.size - b.size), ranks = new Map();
    for (const [page, value] of first)
      if (others.every(map => map.has(page)))
        ranks.set(page, others.reduce((sum, map) => sum + map.get(page), value));
    return ranks;
  };

  // Whether one letter inserted, left out, replaced or exchanged with the next makes one text of the other.
  const isOneEdit = (a, b) => {
    if (a.length < b.length)
      [a, b] = [b, a];
    if (a.length - b.length > 1)
      return false;
    let i = 0;
    while (i < b.length && a[i] === b[i])
      ++i;
    const rest = a.slice(i + 1);
    return a.length > b.length ? rest === b.slice(i) : rest === b.slice(i + 1) ||
      a[i] === b[i + 1] && a[i + 1] === b[i] && a.slice(i + 2) === b.slice(i + 2);
  };

  const reversed = text => [...text].reverse().join("");

  // Words of names and titles that are one edit away. One half of such a word is right: the first half is looked for
  // among the words, the second half among the words written backward.
  const similar = async text => {
    const found = new Set(), half = text.length >> 1;
    await Promise.all([["w", text, half], ["b", reversed(text), text.length - half - 1]].map(async ([kind, key, kept]) => {
      const start = key.slice(0, kept), middle = shardOf(kind, key);
      const first = Math.max(shardOf(kind, start), middle - 3), last = Math.min(shardOf(kind, start + "\uffff"), middle + 3);
      await Promise.all(Array.from({length: last - first + 1}, async (_, i) => {
        for (const other of (await shard(kind, first + i)).texts)
          if (isOneEdit(other, key) && other !== key)
            found.add(kind === "w" ? other : reversed(other));
      }));
    }));
    return [...found].sort().slice(0, 12);
  };

  // The word of names and titles that begins most like the text.
  const nearest = async text => {
    const {texts} = await shard("w", shardOf("w", text)), at = lowerBound(texts, text);
    const common = (other = "") => [...text].findIndex((letter, i) => letter !== other[i]) >>> 0;
    const other = common(texts[at]) > common(texts[at - 1]) ? texts[at] : texts[at - 1];
    return common(other) ? other : "";
  };

  // How a page is shown.
  const row = async page => {
    const block = Math.floor(page / root.block), data = await load("n" + block) ?? ["", ""];
    const {places, rows} = decoded["n" + block] ??= {places: data[0].split("\t"), rows: data[1].split("\t")};
    const [name, codes, file] = rows.slice(page % root.block * 3);
    const next = numbers(codes ?? "AAA"), place = next() * 2;
    return {name, where: places[place], kind: root.kinds[next()], text: next(),
      address: places[place + 1] + (file || name.replace(/::/g, ".")).replace(/#|$/, ".htm$&")};
  };

  // Calls show() with rows, the best first. Later calls have what goes below; their second argument is true if nothing
  // was found and the row is the nearest name.
  const search = async (query, limit, show) => {
    query = query.slice(0, 200).trim().replace(/\s+/g, " ");
    let all = terms(query);
    await open();
    if (!all.length || !root)
      return;
    const shown = new Set();
    const emit = async (ranks, isNearest) => {
      const best = [...ranks].filter(([page]) => !shown.has(page)).sort((a, b) => a[1] - b[1] || a[0] - b[0])
        .slice(0, limit - shown.size).map(([page]) => page);
      const rows = await Promise.all(best.map(row));
      best.forEach(page => shown.add(page));
      if (rows.length)
        show(rows, isNearest);
    };
    const whole = fold(query), maps = {};
    await Promise.all([...new Set([whole, ...all])].map(async text => maps[text] = await pagesOf(text)));
    const ranks = inAll(all.map(text => maps[text]));
    for (const [page, value] of maps[whole])
      if (value < 400)
        ranks.set(page, value - 50);
    await emit(ranks);
    const misspelt = async text => new Map((await Promise.all((await similar(text)).map(other => pagesOf(other, 2000))))
      .flatMap(map => [...map]));
    if (shown.size < 10)
      await emit(await misspelt(whole));
    const parts = terms(query, word);
    if (!shown.size && parts.length)
      await emit(inAll(await Promise.all((all = parts).map(text => pagesOf(text)))));
    if (shown.size < 10 && all[0] !== whole)
      await emit(inAll(await Promise.all(all.map(async text => new Map([...await misspelt(text), ...await pagesOf(text)])))));
    if (!shown.size) {
      const longest = all.reduce((a, b) => a.length < b.length ? b : a);
      const name = await nearest(longest);
      await emit(name ? [...await pagesOf(name, 1)].slice(0, 1) : [], true);
    }
  };
  return {add, load, open, search, terms, word, base, fold, rank, decode, isOneEdit, request};
})();
