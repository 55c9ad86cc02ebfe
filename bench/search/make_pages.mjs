// Makes pages of documentation from what is installed: the comments of headers, and the files of a manual in HTML.
// usage: make_pages.mjs NUMBER OUTPUT [MANUAL]; one page a line, in JSON. The same files give the same pages.
import {createWriteStream, readdirSync, readFileSync} from "node:fs";
import {basename, join, relative} from "node:path";

const headers = "/usr/include";
const [number, output, manual] = process.argv.slice(2);

const declarations = [
  [/^#\s*define\s+(\w+)/, "macro"],
  [/^(?:template\s*<[^{;]*>\s*)?(class|struct|union|enum|namespace)\s+(?:class\s+)?(?:[A-Z_]+\s+)?(\w+)/, ""],
  [/^(?:typedef|using)\b/, "type"],
  [/^[^;{=]*?((?:~|\boperator\s*(?:\(\)|[^\s\w(]+|\s\w+)|\b\w+))\s*\(/, "function"],
  [/^[\w\s*&:<>,]*?\b(\w+)\s*(?:\[[^\]]*\])?\s*[;=]/, "variable"],
];
const keywords = new Set(["if", "for", "while", "return", "switch", "sizeof", "__attribute__", "const", "defined", "static"]);

function declared(text) {
  for (const [pattern, kind] of declarations) {
    const match = pattern.exec(text);
    if (!match)
      continue;
    if (kind === "type") {
      const name = /(\w+)\s*(?:\([^;]*\))?\s*[;=]/.exec(text)?.[1];
      return name && {kind, name};
    }
    const name = kind === "" ? match[2] : match[1].replace(/\s+(?=\W)/g, "").replace(/\s+/g, " ");
    return {kind: kind || match[1], name};
  }
}

const plainText = comment => comment.split("\n").map(line => line.replace(/^[\s*]+/, ""))
  .join("\n").replace(/[@\\]\w+\s?/g, "").trim();

function* pagesOfHeader(file) {
  const text = readFileSync(file, "utf8");
  const where = relative(headers, file);
  const owners = [];
  const seen = new Set();
  for (const match of text.matchAll(/^([ \t]*)\/\*\*(?!\*)([\s\S]*?)\*\/\s*([^\n]*(?:\n[^\n]*){0,3})|^([ \t]*)(?:class|struct)\s+(?:[A-Z_]+\s+)?(\w+)[^;(]*\{/gm)) {
    const depth = (match[1] ?? match[4]).length;
    while (owners.length && owners.at(-1).depth >= depth)
      owners.pop();
    if (match[5]) {
      owners.push({depth, name: match[5]});
      continue;
    }
    const found = declared(match[3]);
    const comment = plainText(match[2]);
    if (!found || keywords.has(found.name) || comment.length < 20)
      continue;
    const name = [...owners.map(owner => owner.name), found.name].join("::");
    if (/^(class|struct)$/.test(found.kind))
      owners.push({depth, name: found.name});
    if (seen.has(name))
      continue;
    seen.add(name);
    const end = comment.search(/\.\s|\n\n/) + 1 || comment.length;
    yield {name, kind: found.kind, where, folder: where.replace(/\W+/g, "_"), brief: comment.slice(0, end), body: comment.slice(end)};
  }
}

function pageOfManual(file) {
  const html = readFileSync(file, "utf8");
  const text = html.replace(/<[^>]*>/g, " ").replace(/&#(\d+);/g, (_, code) => String.fromCodePoint(Number(code)))
    .replace(/&(?:lt|gt|amp|nbsp|quot);/g, entity => ({"&lt;": "<", "&gt;": ">", "&amp;": "&", "&quot;": '"'})[entity] ?? " ");
  const title = /<title>([^<]*)/i.exec(html)?.[1] || basename(file, ".htm");
  return {title, kind: "page", where: "Manual", folder: "manual", file: basename(file, ".htm"), body: text.replace(/\s+/g, " ").trim()};
}

const list = (folder, suffix) => readdirSync(folder, {recursive: true, encoding: "utf8"})
  .filter(name => name.endsWith(suffix)).sort().map(name => join(folder, name));

// Headers in an order that mixes their libraries and is always the same.
function mixed(files) {
  const hash = text => [...text].reduce((sum, c) => Math.imul(sum ^ c.charCodeAt(0), 16777619) >>> 0, 2166136261);
  return files.map(file => [hash(file), file]).sort((a, b) => a[0] - b[0]).map(([, file]) => file);
}

const out = createWriteStream(output);
let left = Number(number);
for (const file of manual ? list(manual, ".htm") : [])
  out.write(JSON.stringify(pageOfManual(file)) + "\n");
for (const file of mixed(list(headers, ".h"))) {
  if (left <= 0)
    break;
  try {
    for (const page of pagesOfHeader(file)) {
      out.write(JSON.stringify(page) + "\n");
      --left;
    }
  } catch (error) {
    if (error.code !== "ENOENT" && error.code !== "EISDIR")
      throw error;
  }
}
out.end();
