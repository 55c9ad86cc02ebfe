// Measures the search in a browser, from files. usage: measure.mjs DIRECTORY BROWSER SET...; each set is a directory with
// queries.js and search/, which make_index wrote. With "minisearch" or "lunr" as a set, the library of that name is
// measured on the pages of DIRECTORY/pages.jsonl with the queries of the first set.
import {copyFileSync, existsSync, readFileSync, statSync, writeFileSync} from "node:fs";
import {createRequire} from "node:module";
import {join, resolve} from "node:path";
import {pathToFileURL} from "node:url";
import * as browsers from "../../tests/site/browser.mjs";

const [directory, browserName, ...sets] = process.argv.slice(2);
const engine = new URL("../../share/site/search.js", import.meta.url);
const inDirectory = createRequire(join(resolve(directory), "package.json"));

// In the page: the time of a query until the first results and until all, and whether it found what it should.
const page = scripts => `<!DOCTYPE html><meta charset="utf-8"><title>Search</title>
${scripts.map(name => `<script src="${name}"></script>`).join("\n")}
<script>
async function measured({kind, query, name}) {
  const rows = [], start = performance.now();
  let first;
  await ask(query, batch => { first ??= performance.now() - start; rows.push(...batch); });
  const all = performance.now() - start;
  const top = rows.slice(0, 10), bare = text => text.toLowerCase().split("::").pop(), sought = query.toLowerCase();
  // The page that the query was made of, or ten others that fit as well.
  const tests = {
    "exact": row => bare(row.name) === sought,
    "qualified": row => row.name.toLowerCase() === sought,
    "prefix": row => bare(row.name).startsWith(sought),
    "one edit": row => isOneEdit(bare(row.name), sought),
    "inner words": row => row.name.toLowerCase().includes(sought),
    "two words": row => sought.split(" ").every(word => row.content.includes(word)),
  };
  const itself = top.some(row => row.name === name);
  if (kind === "two words" && !itself)
    for (const row of top)
      row.content = (row.name + " " + await excerpt(row)).toLowerCase();
  return {kind, query, name, first: first ?? all, all, itself, found: itself || top.length === 10 && top.every(tests[kind])};
}
async function measureAll() {
  const results = [];
  for (const query of queries)
    results.push(await measured(query));
  return results;
}
</script>`;

const ours = `<script>
const isOneEdit = tavidocSearch.isOneEdit;
const ask = (query, show) => tavidocSearch.search(query, 12, show);
const excerpt = async row => (await tavidocSearch.load("x" + (row.text >> 5)))[row.text & 31];
</script>`;

const libraries = {
  minisearch: {
    script: "node_modules/minisearch/dist/umd/index.js",
    options: {fields: ["name", "title", "brief", "body"], storeFields: ["shown"], idField: "id"},
    built(MiniSearch, pages) {
      const index = new MiniSearch(this.options);
      index.addAll(pages);
      return JSON.stringify(index);
    },
    ask: `let index;
      const ask = async (query, show) => {
        index ??= MiniSearch.loadJSON(await text(), OPTIONS);
        show(index.search(query, {prefix: true, fuzzy: 0.2, combineWith: "AND", boost: {name: 4, title: 4, brief: 2}})
          .slice(0, 12).map(({shown, id}) => ({name: shown, id})));
      };`,
  },
  lunr: {
    script: "node_modules/lunr/lunr.js",
    built: (lunr, pages) => JSON.stringify(lunr(function () {
      this.ref("id");
      for (const [field, boost] of [["name", 4], ["title", 4], ["brief", 2], ["body", 1]])
        this.field(field, {boost});
      pages.forEach(page => this.add(page));
    })),
    ask: `let index;
      const ask = async (query, show) => {
        index ??= lunr.Index.load(JSON.parse(await text()));
        const found = index.query(builder => {
          for (const token of lunr.tokenizer(query)) {
            builder.term(token, {boost: 10});
            builder.term(token, {boost: 5, usePipeline: false, wildcard: lunr.Query.wildcard.TRAILING});
            builder.term(token, {usePipeline: false, editDistance: 1});
          }
        });
        show(found.slice(0, 12).map(({ref}) => ({name: names[ref], id: ref})));
      };`,
  },
};

// Like our search, the libraries load their index when the first key is pressed.
function writeLibraryPage(name) {
  const library = libraries[name];
  const pages = readFileSync(join(directory, "pages.jsonl"), "utf8").trim().split("\n").map((line, id) => {
    const page = JSON.parse(line);
    return {id, name: "", title: "", brief: "", ...page, shown: page.name || page.title};
  });
  const index = library.built(inDirectory(name), pages);
  writeFileSync(join(directory, name + "-index.js"), `gotText(${JSON.stringify(index)});\n`);
  writeFileSync(join(directory, name + "-names.js"), `var names = ${JSON.stringify(pages.map(page => page.shown))};
    var contents = ${JSON.stringify(pages.map(page => page.brief + " " + page.body))};\n`);
  const code = `<script>
    ${isOneEditSource}
    const text = () => new Promise(done => {
      window.gotText = done;
      const script = document.createElement("script");
      script.src = "${name}-index.js";
      document.head.append(script);
    });
    ${library.ask.replace("OPTIONS", JSON.stringify(library.options))}
    const excerpt = row => contents[row.id];
    </script>`;
  writeFileSync(join(directory, name + ".htm"), page([library.script, join(resolve(sets[0]), "queries.js"), name + "-names.js"]) + code);
  return {url: pathToFileURL(join(directory, name + ".htm")), size: statSync(join(directory, name + "-index.js")).size};
}

const isOneEditSource = /const isOneEdit = [\s\S]*?\n {2}};/.exec(readFileSync(engine, "utf8"))[0];

function writeOurPage(set) {
  copyFileSync(engine, join(set, "search.js"));
  writeFileSync(join(set, "bench.htm"), page(["search.js", "queries.js"]) + ours);
  return {url: pathToFileURL(join(set, "bench.htm"))};
}

const quantile = (numbers, part) => numbers.toSorted((a, b) => a - b)[Math.min(numbers.length - 1, Math.floor(numbers.length * part))];
const milliseconds = (results, key) => [0.5, 0.95].map(part => quantile(results.map(result => result[key]), part).toFixed(1)).join(" / ");

const browser = await browsers[browserName]();
for (const set of sets) {
  const isLibrary = !existsSync(join(set, "queries.js"));
  const {url, size} = isLibrary ? writeLibraryPage(set) : writeOurPage(set);
  console.log(`\n${set}, ${browser.name}${size ? `, index ${(size / 1048576).toFixed(1)} MB` : ""}`);
  const opened = [];
  for (let i = 0; i < 25; ++i) {
    await browser.goto(String(url));
    opened.push(await browser.evaluate(`measured(queries[${i * 10}])`));
  }
  console.log(`opens in ${milliseconds(opened.slice(5), "first")} ms (p50 / p95 of 20 fresh pages)`);
  await browser.goto(String(url));
  const results = await browser.evaluate("measureAll()");
  console.log("| kind | found % | the page itself % | first results ms, p50 / p95 | all results ms, p50 / p95 |");
  for (const kind of [...new Set(results.map(result => result.kind)), "all"]) {
    const some = results.filter(result => kind === "all" || result.kind === kind);
    const percent = key => (100 * some.filter(result => result[key]).length / some.length).toFixed(1);
    console.log(`| ${kind} | ${percent("found")} | ${percent("itself")} | ${milliseconds(some, "first")} | ${milliseconds(some, "all")} |`);
  }
  if (process.env.SHOW_MISSES)
    console.log(results.filter(result => !result.found).map(({kind, query, name}) => `${kind}: ${query} (${name})`).join("\n"));
}
await browser.close();
