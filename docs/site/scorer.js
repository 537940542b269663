// How the results of a search are ordered: the entry of the method that was typed comes first, whatever its class.
const typed = (new URLSearchParams(location.search).get("q") || "").trim().toLowerCase();

var Scorer = {
  score: ([, title, anchor, , score]) => {
    const name = title.toLowerCase();
    const isMethod = anchor !== "" && (name === typed || name.endsWith("::" + typed));
    return isMethod ? score + 1000 : score;
  },

  // As Sphinx has them: a method's name, or a part of it
  objNameMatch: 11,
  objPartialMatch: 6,
  objPrio: { 0: 15, 1: 5, 2: -5 },
  objPrioDefault: 0,
  // a heading, and words of the text
  title: 15,
  partialTitle: 7,
  term: 5,
  partialTerm: 2,
};
