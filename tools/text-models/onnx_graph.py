# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""An ONNX graph that can be rewritten: nodes without their constants, which are kept by name."""
import collections

import numpy as np
import onnx
from onnx import helper, numpy_helper


class Graph:
    def __init__(self, path):
        nodes = onnx.load(path).graph
        self.constants = {node.output[0]: numpy_helper.to_array(node.attribute[0].t)
                          for node in nodes.node if node.op_type == "Constant"}
        self.nodes = [node for node in nodes.node if node.op_type != "Constant"]
        self.output = nodes.output[0].name

    def users(self):
        """The nodes that read each value."""
        users = collections.defaultdict(list)
        for node in self.nodes:
            for name in node.input:
                users[name].append(node)
        return users

    def producers(self):
        return {output: node for node in self.nodes for output in node.output}

    def constant(self, name, values):
        self.constants[name] = np.ascontiguousarray(values)
        return name

    def scalar(self, name):
        """The one number of a constant; None for whatever else."""
        values = self.constants.get(name)
        return float(values.reshape(-1)[0]) if values is not None and values.size == 1 else None

    def operands(self, node):
        """Of a node of two inputs, one of them constant: first the other, then the constant."""
        left, right = node.input
        return (right, left) if left in self.constants else (left, right)

    def scalar_operand(self, node):
        return self.scalar(self.operands(node)[1]) if len(node.input) == 2 else None

    def remove(self, node):
        self.nodes = [other for other in self.nodes if other is not node]

    def bypass(self, node, name):
        """Takes a node out; whoever read its result reads `name` instead."""
        result = node.output[0]
        for other in self.nodes:
            for i, read in enumerate(other.input):
                if read == result:
                    other.input[i] = name
        if self.output == result:
            self.output = name
        self.remove(node)

    def weights(self, conv):
        """The weights and the bias of a convolution."""
        weights = self.constants[conv.input[1]].astype(np.float64)
        if len(conv.input) > 2:
            return weights, self.constants[conv.input[2]].astype(np.float64)
        return weights, np.zeros(weights.shape[0])

    def set_weights(self, conv, weights, bias):
        source, result = conv.input[0], conv.output[0]
        set_inputs(conv, source, self.constant("weights " + result, weights.astype(np.float32)),
                   self.constant("bias " + result, bias.astype(np.float32)))

    def save(self, path, input_shape, output_shape):
        """Writes what leads to the output, in the order in which it has to be computed."""
        order, done = [], set()
        producers = self.producers()
        stack = [(self.output, False)]
        while stack:
            name, visited = stack.pop()
            node = producers.get(name)
            if node is None or id(node) in done:
                continue
            if visited:
                done.add(id(node))
                order.append(node)
            else:
                stack.append((name, True))
                stack.extend((read, False) for read in node.input)
        read = sorted({name for node in order for name in node.input if name in self.constants})
        constants = [helper.make_node("Constant", [], [name], value=numpy_helper.from_array(
            self.constants[name], name)) for name in read]
        graph = helper.make_graph(
            constants + order, "text",
            [helper.make_tensor_value_info("x", onnx.TensorProto.FLOAT, input_shape)],
            [helper.make_tensor_value_info(self.output, onnx.TensorProto.FLOAT, output_shape)])
        model = helper.make_model(graph, opset_imports=[helper.make_opsetid("", 11)],
                                  producer_name="tovarin")
        model.ir_version = 7
        onnx.save(model, path)


def set_inputs(node, *names):
    del node.input[:]
    node.input.extend(names)


def set_attributes(node, **attributes):
    del node.attribute[:]
    node.attribute.extend(helper.make_attribute(name, value)
                          for name, value in attributes.items())


def attributes(node):
    return {attribute.name: helper.get_attribute_value(attribute) for attribute in node.attribute}
